// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QTcpServer>

/**
 * One listening port on 127.0.0.1 for both WebSocket and plain HTTP clients: reads the head of the first
 * request without consuming it and hands the socket on, to be owned by whoever takes it. Owned by a
 * simulator, lives on its thread.
 */
class ConnectionSorter final : public QObject
{
    Q_OBJECT

public:
    /// Upgrades are taken at `webSocketPath` alone; at any other path they count as plain requests.
    ConnectionSorter(const QString &webSocketPath, QObject *parent);

    bool listen(quint16 port); ///< port 0 lets the system choose
    void close() { m_server.close(); }
    bool isListening() const { return m_server.isListening(); }
    quint16 port() const { return m_port; } ///< the last one, also while closed; 0 before the first
    QString errorString() const { return m_server.errorString(); }
    int acceptedConnections() const { return m_accepted; }

Q_SIGNALS:
    void webSocketRequested(QTcpSocket *socket);
    void plainRequested(QTcpSocket *socket);

private:
    void acceptConnections();
    void sort(QTcpSocket *socket);

    QTcpServer m_server;
    QByteArray m_requestLine;
    quint16 m_port = 0;
    int m_accepted = 0;
};
