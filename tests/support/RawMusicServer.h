// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QJsonObject>
#include <QObject>
#include <QStringList>
#include <QWebSocketServer>

/**
 * A WebSocket server on 127.0.0.1 that says only what the test tells it to, and records each text as it came: the
 * player's counterpart where single bytes count. It lives on the test's thread and owns its sockets.
 */
class RawMusicServer final : public QObject
{
    Q_OBJECT

public:
    RawMusicServer();
    ~RawMusicServer() override;

    bool listen(); ///< on a port of the system's choice, and on the same one again after stopListening()
    void stopListening() { m_server.close(); }
    QString port() const { return QString::number(m_port); }

    void send(const QString &text); ///< to every client
    void send(const QJsonObject &object);
    void dropAll(); ///< without a closing handshake

    QStringList texts;           ///< received, in order; the test clears it
    QStringList paths;           ///< of the URLs that clients opened
    QStringList methods() const; ///< of the received texts
    int liveSockets() const { return m_sockets.size(); }

private:
    void accept();

    QWebSocketServer m_server;
    quint16 m_port = 0;
    QList<QWebSocket *> m_sockets;
};
