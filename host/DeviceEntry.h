// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QCoreApplication>
#include <QString>
#include <QVariantMap>

/// One device as a person has entered it. The password is not part of it: it is kept elsewhere.
struct DeviceEntry
{
    Q_DECLARE_TR_FUNCTIONS(DeviceEntry)

public:
    QString id; ///< made here, never shown; the key of the password in the desktop's secret store
    QString name;
    QString host; ///< name or address; an IPv6 address stands without its brackets
    int port = 0; ///< 1 to 65535
    QString user;

    bool isSameDevice(const DeviceEntry &other) const
    {
        return host == other.host && port == other.port && user == other.user;
    }

    /// From what stands in the fields of a form: texts "name", "host", "port" and "user", without blanks around
    /// them. No id; without a name it is called as its host. A port that is no number is 0.
    static DeviceEntry fromForm(const QVariantMap &typed);

    /// One sentence on the first thing that is wrong, or an empty text.
    QString complaint() const;
};
