// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/RelayConnection.h"

#include <QHostAddress>

#include "simulator/HardReset.h"

RelayConnection::RelayConnection(QTcpSocket *client, quint16 target, const LinkFaults &faults,
                                 QObject *parent)
    : QObject(parent), m_client(client), m_writer(client, faults, this)
{
    m_client->setParent(this);
    m_client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(m_client, &QTcpSocket::readyRead, this, &RelayConnection::toPeer);
    connect(m_client, &QTcpSocket::bytesWritten, this, [this](qint64 bytes) {
        m_passed += bytes;
        Q_EMIT passed(m_passed);
    });
    connect(m_client, &QTcpSocket::disconnected, this, &RelayConnection::closed);
    connect(&m_peer, &QTcpSocket::connected, this,
            [this] { m_peer.setSocketOption(QAbstractSocket::LowDelayOption, 1); });
    connect(&m_peer, &QTcpSocket::readyRead, this, &RelayConnection::toClient);
    // Also when nobody listens there.
    connect(&m_peer, &QTcpSocket::stateChanged, this, [this](QAbstractSocket::SocketState state) {
        if (state == QAbstractSocket::UnconnectedState)
            close();
    });
    m_peer.connectToHost(QHostAddress(QHostAddress::LocalHost), target);
}

RelayConnection::~RelayConnection()
{
    m_peer.disconnect(this); // it still tells of its end, when there is nobody any more
}

void RelayConnection::reset()
{
    hardReset(m_client);
}

void RelayConnection::freeze()
{
    m_frozen = true;
    m_writer.clear();
}

void RelayConnection::toPeer()
{
    if (m_frozen)
        return;
    Q_EMIT clientSpoke();
    m_peer.write(m_client->readAll());
}

void RelayConnection::toClient()
{
    if (!m_frozen)
        m_writer.append(m_peer.readAll());
}
