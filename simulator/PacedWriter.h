// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QTcpSocket>
#include <QTimer>

#include "simulator/LinkFaults.h"

/**
 * Writes a stream of bytes to a socket from the event loop, in the pieces that the faults ask for: what is
 * queued within one turn goes out as one write unless it is to be split. Owned by a connection, lives on its
 * thread.
 */
class PacedWriter final : public QObject
{
    Q_OBJECT

public:
    /// Neither `socket` nor `faults` is owned; `faults` must outlive the writer and is read at each write.
    PacedWriter(QTcpSocket *socket, const LinkFaults &faults, QObject *parent);

    /// Queues bytes. Nothing is written before the next turn of the event loop.
    void append(const QByteArray &bytes);

    /// Drops what has not been written yet.
    void clear();

private:
    void writePiece();
    int nextPieceSize() const;
    bool isLimitReached() const;

    QPointer<QTcpSocket> m_socket;
    const LinkFaults &m_faults;
    QByteArray m_pending;
    qint64 m_written = 0;
    QTimer m_turn;
};
