// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/LineReader.h"

#include <QTimer>

#include <cerrno>
#include <csignal>
#include <utility>

#include <unistd.h>

namespace {

constexpr int longestLine = 64 * 1024; // bytes
constexpr int backgroundPause = 1000;  // milliseconds

bool isInBackground()
{
    const pid_t foreground = tcgetpgrp(STDIN_FILENO);
    return foreground > 0 && foreground != getpgrp();
}

} // namespace

LineReader::LineReader(QObject *parent) : QObject(parent), m_notifier(STDIN_FILENO, QSocketNotifier::Read)
{
    // Otherwise a key pressed on the terminal would stop a simulator in its background.
    std::signal(SIGTTIN, SIG_IGN);
    connect(&m_notifier, &QSocketNotifier::activated, this, &LineReader::read);
}

void LineReader::read()
{
    char bytes[4096];
    const ssize_t count = ::read(STDIN_FILENO, bytes, sizeof bytes);
    const int reason = count < 0 ? errno : 0;
    if (count > 0)
        take(QByteArray(bytes, int(count)));
    else if (reason == EIO && isInBackground())
        readAgainLater();
    else if (reason != EINTR && reason != EAGAIN)
        end();
}

void LineReader::take(const QByteArray &bytes)
{
    m_buffer.append(bytes);
    for (int end = m_buffer.indexOf('\n'); end >= 0; end = m_buffer.indexOf('\n')) {
        const QString line = QString::fromUtf8(m_buffer.left(end));
        m_buffer.remove(0, end + 1);
        if (!std::exchange(m_skips, false))
            Q_EMIT lineRead(line);
    }
    if (m_buffer.size() <= longestLine)
        return;
    m_buffer.clear();
    if (!std::exchange(m_skips, true))
        Q_EMIT lineDropped(longestLine);
}

// What is typed for the shell keeps the notifier awake; no signal tells of a job's way to the foreground.
void LineReader::readAgainLater()
{
    m_notifier.setEnabled(false);
    QTimer::singleShot(backgroundPause, &m_notifier, [this] { m_notifier.setEnabled(true); });
}

void LineReader::end()
{
    m_notifier.setEnabled(false);
    if (!m_buffer.isEmpty() && !m_skips)
        Q_EMIT lineRead(QString::fromUtf8(m_buffer));
}
