// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QVector>

/**
 * Cuts the device's byte stream into frames at "%%%". A value without a socket; it lives with the socket that
 * feeds it, on the link's thread.
 */
class StreamSplitter final
{
public:
    /// Appends `bytes` as read and returns what is to be processed now, in order and without terminators: the
    /// whole frames, the head of a next one being kept. A lone fragment without any terminator is returned too,
    /// and kept: it comes again, whole, when its rest has arrived. Bytes behind a NUL are not looked at.
    QVector<QByteArray> append(const QByteArray &bytes);

    /// Forgets what a lost connection left unfinished.
    void clear() { m_buffer.clear(); }

    /// Number of bytes that wait for their terminator.
    int pendingBytes() const { return m_buffer.size(); }

private:
    QByteArray m_buffer;
};
