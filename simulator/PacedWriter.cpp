// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/PacedWriter.h"

#include <algorithm>

PacedWriter::PacedWriter(QTcpSocket *socket, const LinkFaults &faults, QObject *parent)
    : QObject(parent), m_socket(socket), m_faults(faults)
{
    m_turn.setSingleShot(true);
    m_turn.setTimerType(Qt::PreciseTimer);
    connect(&m_turn, &QTimer::timeout, this, &PacedWriter::writePiece);
}

void PacedWriter::append(const QByteArray &bytes)
{
    m_pending.append(bytes);
    if (!m_turn.isActive())
        m_turn.start(0);
}

void PacedWriter::clear()
{
    m_turn.stop();
    m_pending.clear();
}

void PacedWriter::writePiece()
{
    if (!m_socket || m_socket->state() != QAbstractSocket::ConnectedState) {
        m_pending.clear();
        return;
    }
    const int size = nextPieceSize();
    m_socket->write(m_pending.constData(), size);
    m_socket->flush();
    m_pending.remove(0, size);
    m_written += size;
    if (isLimitReached()) {
        m_pending.clear();
        m_socket->disconnectFromHost();
    } else if (!m_pending.isEmpty()) {
        m_turn.start(m_faults.splitPauseMs);
    }
}

int PacedWriter::nextPieceSize() const
{
    if (m_faults.byteByByte)
        return std::min(1, m_pending.size());
    qint64 size = m_pending.size();
    if (m_faults.cutAt > m_written)
        size = std::min(size, m_faults.cutAt - m_written);
    if (m_faults.closeAfterBytes >= 0)
        size = std::min(size, std::max<qint64>(0, m_faults.closeAfterBytes - m_written));
    return int(size);
}

bool PacedWriter::isLimitReached() const
{
    return m_faults.closeAfterBytes >= 0 && m_written >= m_faults.closeAfterBytes;
}
