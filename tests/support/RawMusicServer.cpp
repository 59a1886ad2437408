// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/RawMusicServer.h"

#include <QJsonDocument>
#include <QWebSocket>

RawMusicServer::RawMusicServer() : m_server(QString(), QWebSocketServer::NonSecureMode)
{
    connect(&m_server, &QWebSocketServer::newConnection, this, &RawMusicServer::accept);
}

RawMusicServer::~RawMusicServer()
{
    for (QWebSocket *socket : qAsConst(m_sockets))
        socket->disconnect(this);
    qDeleteAll(m_sockets);
}

bool RawMusicServer::listen()
{
    if (!m_server.listen(QHostAddress::LocalHost, m_port))
        return false;
    m_port = m_server.serverPort();
    return true;
}

void RawMusicServer::send(const QString &text)
{
    for (QWebSocket *socket : qAsConst(m_sockets))
        socket->sendTextMessage(text);
}

void RawMusicServer::send(const QJsonObject &object)
{
    send(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

void RawMusicServer::dropAll()
{
    const QList<QWebSocket *> sockets = m_sockets; // each one leaves the list while it ends
    for (QWebSocket *socket : sockets)
        socket->abort();
}

QStringList RawMusicServer::methods() const
{
    QStringList names;
    for (const QString &text : texts)
        names << QJsonDocument::fromJson(text.toUtf8()).object().value(QLatin1String("method")).toString();
    return names;
}

void RawMusicServer::accept()
{
    while (QWebSocket *socket = m_server.nextPendingConnection()) {
        m_sockets << socket;
        paths << socket->requestUrl().path();
        connect(socket, &QWebSocket::textMessageReceived, this,
                [this](const QString &text) { texts << text; });
        connect(socket, &QWebSocket::disconnected, this, [this, socket] {
            m_sockets.removeOne(socket);
            socket->deleteLater();
        });
    }
}
