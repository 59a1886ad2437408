// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/MopidyServer.h"

#include <QStandardPaths>

namespace {
constexpr int longest = 60000; // milliseconds for a start or an end
}

MopidyServer::~MopidyServer()
{
    stop();
}

bool MopidyServer::isInstalled()
{
    return !QStandardPaths::findExecutable(QStringLiteral("mopidy")).isEmpty();
}

bool MopidyServer::start()
{
    QStringList arguments{QStringLiteral("--stopped"), QStringLiteral("--home"), m_home.path()};
    if (!m_port.isEmpty())
        arguments << QStringLiteral("--port") << m_port;
    m_process.start(QStringLiteral(HALVORA_TOOLS "/mopidy-server"), arguments);
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(longest))
            return false;
    }
    m_port = QString::fromLatin1(m_process.readLine()).trimmed().section(QLatin1Char(':'), -1);
    return !m_port.isEmpty();
}

void MopidyServer::stop()
{
    m_process.terminate();
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(longest))
        m_process.kill();
}
