// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/StreamSplitter.h"

#include "link/FrameCodec.h"

#include <cstring>

namespace {

QVector<QByteArray> nonEmptyParts(const QByteArray &text, const QByteArray &terminator)
{
    QVector<QByteArray> parts;
    for (int from = 0; from < text.size();) {
        const int found = text.indexOf(terminator, from);
        const int to = found < 0 ? text.size() : found;
        if (to > from)
            parts.append(QByteArray(text.constData() + from, to - from)); // a copy, also of the whole text
        from = to + terminator.size();
    }
    return parts;
}

} // namespace

QVector<QByteArray> StreamSplitter::append(const QByteArray &bytes)
{
    const QByteArray terminator(FrameCodec::deviceTerminator);
    m_buffer.append(bytes);
    const auto textLength = int(qstrnlen(m_buffer.constData(), uint(m_buffer.size())));
    const QByteArray text = QByteArray::fromRawData(m_buffer.constData(), textLength);
    QVector<QByteArray> parts = nonEmptyParts(text, terminator);
    if (text.endsWith(terminator)) {
        clear();
    } else if (parts.size() >= 2) {
        const int unfinished = parts.takeLast().size();
        m_buffer = m_buffer.right(unfinished);
    }
    return parts;
}
