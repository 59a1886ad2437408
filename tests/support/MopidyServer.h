// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QProcess>
#include <QTemporaryDir>

/**
 * A real Mopidy server with a few albums in a folder that lives as long as this object, on 127.0.0.1, silent. It
 * can be ended and started again on the same port with the same music.
 */
class MopidyServer final
{
public:
    ~MopidyServer();

    /// Whether there is a server on this machine to start.
    static bool isInstalled();

    /// Starts it with an empty queue and waits until it serves. False if it did not come; errorText() says why.
    bool start();
    void stop();

    QString host() const { return QStringLiteral("127.0.0.1"); }
    QString port() const { return m_port; } ///< empty before the first start
    QString errorText() { return QString::fromLocal8Bit(m_process.readAllStandardError()); }

private:
    QTemporaryDir m_home;
    QProcess m_process;
    QString m_port;
};
