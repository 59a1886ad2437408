// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/ConnectionSorter.h"

#include <QHostAddress>
#include <QTcpSocket>

namespace {

constexpr int longestHead = 16 * 1024; // bytes

} // namespace

ConnectionSorter::ConnectionSorter(const QString &webSocketPath, QObject *parent)
    : QObject(parent), m_requestLine("GET " + webSocketPath.toLatin1() + ' ')
{
    connect(&m_server, &QTcpServer::newConnection, this, &ConnectionSorter::acceptConnections);
}

bool ConnectionSorter::listen(quint16 port)
{
    if (!m_server.listen(QHostAddress::LocalHost, port))
        return false;
    m_port = m_server.serverPort();
    return true;
}

void ConnectionSorter::acceptConnections()
{
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
        ++m_accepted;
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { sort(socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void ConnectionSorter::sort(QTcpSocket *socket)
{
    const QByteArray head = socket->peek(longestHead);
    if (!head.contains("\r\n\r\n") && head.size() < longestHead)
        return;
    // From here on the socket belongs to whoever takes it.
    socket->disconnect(this);
    QObject::disconnect(socket, &QTcpSocket::disconnected, socket, nullptr);
    socket->setParent(nullptr);
    if (head.startsWith(m_requestLine) && head.toLower().contains("\r\nupgrade: websocket"))
        Q_EMIT webSocketRequested(socket);
    else
        Q_EMIT plainRequested(socket);
}
