// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/DeviceConnection.h"

#include <QTimer>

#include "link/Aes128.h"
#include "link/FrameCodec.h"
#include "simulator/HardReset.h"

namespace {

// Fills the last block by hand, so that the codec's own padding is a whole block that can be cut off again.
// What is left ends in 2 behind a run of 1: no valid padding, and only its last byte looks like one.
QByteArray encryptWithWrongPadding(const QString &text)
{
    const int blockSize = Aes128::blockSize;
    int filler = blockSize - text.toUtf8().size() % blockSize;
    if (filler == 1)
        filler += blockSize;
    const QString filled = text + QString(filler - 1, QLatin1Char('\1')) + QLatin1Char('\2');
    QByteArray cipher = QByteArray::fromBase64(FrameCodec::encryptText(filled));
    cipher.chop(blockSize);
    return cipher.toBase64();
}

} // namespace

DeviceConnection::DeviceConnection(QTcpSocket *socket, const LinkFaults &faults, QObject *parent)
    : QObject(parent), m_socket(socket), m_faults(faults), m_writer(socket, faults, this)
{
    m_socket->setParent(this);
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(m_socket, &QTcpSocket::readyRead, this, &DeviceConnection::readStream);
    connect(m_socket, &QTcpSocket::disconnected, this, &DeviceConnection::closed);
}

void DeviceConnection::sendPlain(const QString &text)
{
    Q_EMIT plainSent(text);
    const QByteArray cipher = m_faults.wrongPadding ? encryptWithWrongPadding(text)
                                                    : FrameCodec::encryptText(text);
    sendRaw(m_faults.garbageBeforeFrame + cipher + FrameCodec::deviceTerminator);
}

void DeviceConnection::reset()
{
    hardReset(m_socket);
}

void DeviceConnection::readStream()
{
    m_buffer.append(m_socket->readAll());
    for (int end = m_buffer.indexOf(FrameCodec::clientTerminator); end >= 0;
         end = m_buffer.indexOf(FrameCodec::clientTerminator)) {
        const QByteArray frame = m_buffer.left(end);
        m_buffer.remove(0, end + 1);
        accept(frame);
    }
}

void DeviceConnection::accept(const QByteArray &frame)
{
    Q_EMIT frameReceived(frame);
    const QString message = FrameCodec::decryptText(frame);
    if (m_faults.answerDelayMs <= 0) {
        Q_EMIT messageReceived(message);
        return;
    }
    m_delayed.enqueue(message);
    QTimer::singleShot(m_faults.answerDelayMs, this, [this] { Q_EMIT messageReceived(m_delayed.dequeue()); });
}
