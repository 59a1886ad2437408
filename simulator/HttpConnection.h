// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include "simulator/HttpResponse.h"

/**
 * The server's end of one HTTP/1.1 connection: takes requests one after the other, each when the one before
 * has been answered in full. Owns the socket and deletes itself when that ends; lives on its server's thread.
 */
class HttpConnection final : public QObject
{
    Q_OBJECT

public:
    HttpConnection(QTcpSocket *socket, QObject *parent);

    /// Reads what has arrived before anybody listened; to be called once requestReceived() is connected.
    void start();

    /// Answers the request that was reported last.
    void respond(const HttpResponse &response);

Q_SIGNALS:
    void requestReceived(const QByteArray &method, const QString &path);
    void responseSent(const HttpResponse &response); ///< its head; a slow body follows

private:
    void readRequest();
    void sendHead();
    void sendPiece();
    void finish();

    QTcpSocket *m_socket;
    QByteArray m_buffer;
    HttpResponse m_response;
    QTimer m_tick;
    int m_sent = 0;
    bool m_busy = false;
    bool m_wantsClose = false;
    bool m_wantsBody = true;
};
