// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/HalvoraConnection.h"

#include "link/HalvoraConnSocket.h"

HalvoraConnection::HalvoraConnection(const QString &host, int port) : m_host(host), m_port(port) { }

HalvoraConnection::~HalvoraConnection()
{
    delete m_socket;
}

void HalvoraConnection::startConnection()
{
    m_socket = new HalvoraConnSocket;
    connect(m_socket, &HalvoraConnSocket::connectionOpen, this, &HalvoraConnection::connectionOpen);
    connect(m_socket, &HalvoraConnSocket::connectionEstablished, this,
            &HalvoraConnection::connectionEstablished);
    connect(m_socket, &HalvoraConnSocket::connectionError, this, &HalvoraConnection::connectionError);
    connect(m_socket, &HalvoraConnSocket::elaborateCommand, this,
            &HalvoraConnection::elaborateCommandReceived);
    connect(m_socket, &HalvoraConnSocket::connectionMustRestart, this, &HalvoraConnection::startSocket);
    startSocket();
}

void HalvoraConnection::killConnection()
{
    if (m_socket)
        m_socket->abort();
}

void HalvoraConnection::sendCommand(QString message)
{
    // The login still waits in the GUI thread's queue when the device has only just been reached.
    if (m_socket && m_socket->hasSpoken())
        sendString(QLatin1String("UI_COMMAND|") + message);
}

void HalvoraConnection::sendString(QString message)
{
    if (m_socket)
        m_socket->writeMessage(message);
}

void HalvoraConnection::startSocket()
{
    if (m_socket)
        m_socket->connectToServer(m_host, m_port);
}
