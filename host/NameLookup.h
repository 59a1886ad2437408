// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QString>

/// Tells whether the network knows a device's name, which the link to the device does not say. GUI thread.
class NameLookup final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~NameLookup() override;

    /// Looks a name up; an address needs none, nor does an empty text. An earlier question is dropped.
    void ask(const QString &host);

Q_SIGNALS:
    void unknown(const QString &host);

private:
    void drop();

    int m_pending = -1; // the lookup's number, -1 for none
};
