// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/WireRelay.h"

#include <QHostAddress>

#include "simulator/RelayConnection.h"

WireRelay::WireRelay(QObject *parent) : QObject(parent)
{
    connect(&m_server, &QTcpServer::newConnection, this, &WireRelay::acceptConnections);
}

WireRelay::~WireRelay()
{
    // The sockets report their end while they are torn down; by then there must be nobody to hear it.
    for (RelayConnection *connection : qAsConst(m_connections))
        connection->disconnect(this);
    qDeleteAll(m_connections);
}

bool WireRelay::listen()
{
    if (!m_server.isListening() && !m_server.listen(QHostAddress::LocalHost, m_port))
        return false;
    m_port = m_server.serverPort();
    return true;
}

void WireRelay::closeAll()
{
    each(&RelayConnection::close);
}

void WireRelay::resetAll()
{
    each(&RelayConnection::reset);
}

void WireRelay::freeze()
{
    m_frozen = true;
    each(&RelayConnection::freeze);
}

void WireRelay::thaw()
{
    m_frozen = false;
    resetAll();
}

void WireRelay::each(void (RelayConnection::*act)())
{
    const QList<RelayConnection *> connections = m_connections; // one may leave the list while it ends
    for (RelayConnection *connection : connections)
        (connection->*act)();
}

void WireRelay::acceptConnections()
{
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
        auto *connection = new RelayConnection(socket, m_target, m_faults, this);
        m_connections << connection;
        ++m_accepted;
        connect(connection, &RelayConnection::clientSpoke, this, &WireRelay::clientSpoke);
        connect(connection, &RelayConnection::passed, this, &WireRelay::passed);
        connect(connection, &RelayConnection::closed, this, [this, connection] { forget(connection); });
        if (m_frozen)
            connection->freeze();
        Q_EMIT clientConnected();
    }
}

void WireRelay::forget(RelayConnection *connection)
{
    if (!m_connections.removeOne(connection))
        return;
    connection->deleteLater();
    Q_EMIT clientDisconnected();
}
