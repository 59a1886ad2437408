// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/HostilePeer.h"

#include <QCryptographicHash>
#include <QSemaphore>
#include <QTcpSocket>
#include <QtEndian>

namespace {

constexpr int pause = 20; // milliseconds between two looks at whether all is over

} // namespace

HostilePeer::HostilePeer(Script script)
{
    QSemaphore listens;
    m_thread = QThread::create([this, script = std::move(script), &listens] {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        m_port = server.serverPort();
        listens.release();
        for (int number = 0; !m_ends;) {
            if (!server.waitForNewConnection(pause))
                continue;
            const std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
            Connection connection(socket.get(), m_ends);
            script(connection, number++);
            socket->disconnectFromHost();
            if (socket->state() != QAbstractSocket::UnconnectedState)
                socket->waitForDisconnected(1000);
            ++m_served;
        }
    });
    m_thread->start();
    listens.acquire();
}

HostilePeer::~HostilePeer()
{
    m_ends = true;
    m_thread->wait();
    delete m_thread;
}

bool HostilePeer::Connection::isOpen() const
{
    return !m_ends && m_socket->state() == QAbstractSocket::ConnectedState;
}

QByteArray HostilePeer::Connection::readUntil(const QByteArray &end)
{
    QByteArray text;
    while (isOpen() && !text.contains(end)) {
        m_socket->waitForReadyRead(pause);
        text += m_socket->readAll();
    }
    return text;
}

void HostilePeer::Connection::send(const QByteArray &bytes)
{
    if (!isOpen())
        return;
    m_socket->write(bytes);
    while (isOpen() && m_socket->bytesToWrite() > 0)
        m_socket->waitForBytesWritten(pause);
}

void HostilePeer::Connection::sendMuch(const QByteArray &piece, qint64 bytes)
{
    for (qint64 sent = 0; sent < bytes && isOpen(); sent += piece.size())
        send(piece.left(int(qMin<qint64>(piece.size(), bytes - sent))));
}

void HostilePeer::Connection::waitForTheEnd()
{
    while (isOpen()) {
        m_socket->waitForReadyRead(pause);
        m_socket->readAll();
    }
}

bool HostilePeer::Connection::becomeWebSocket()
{
    const QByteArray request = readUntil("\r\n\r\n");
    const QByteArray field = "Sec-WebSocket-Key: ";
    const int from = request.indexOf(field) + field.size();
    const QByteArray key = request.mid(from, request.indexOf('\r', from) - from);
    const QByteArray accept = QCryptographicHash::hash(key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11",
                                                       QCryptographicHash::Sha1);
    send("HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
         "Sec-WebSocket-Accept: "
         + accept.toBase64() + "\r\n\r\n");
    return isOpen();
}

void HostilePeer::Connection::announce(quint64 bytes, char kind)
{
    QByteArray length(8, '\0');
    qToBigEndian(bytes, length.data());
    // The shortest form that holds it is the only one allowed.
    send(kind + (bytes < 126 ? length.right(1) : bytes < 65536 ? '~' + length.right(2) : '\x7f' + length));
}

void HostilePeer::Connection::sendText(const QByteArray &head, const QByteArray &piece, qint64 bytes,
                                       const QByteArray &tail)
{
    announce(quint64(head.size() + bytes + tail.size()));
    send(head);
    sendMuch(piece, bytes);
    send(tail);
}
