// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/LineReader.h"

#include <unistd.h>

LineReader::LineReader(QObject *parent) : QObject(parent), m_notifier(STDIN_FILENO, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &LineReader::read);
}

void LineReader::read()
{
    constexpr int longestLine = 64 * 1024;
    char bytes[4096];
    const ssize_t count = ::read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0 || m_buffer.size() > longestLine) {
        m_notifier.setEnabled(false);
        return;
    }
    m_buffer.append(bytes, int(count));
    for (int end = m_buffer.indexOf('\n'); end >= 0; end = m_buffer.indexOf('\n')) {
        const QString line = QString::fromUtf8(m_buffer.left(end));
        m_buffer.remove(0, end + 1);
        Q_EMIT lineRead(line);
    }
}
