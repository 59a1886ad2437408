// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/HttpConnection.h"

#include <QUrl>

namespace {

constexpr int tickMs = 10;
constexpr int longestHead = 64 * 1024; // bytes
constexpr int mostUnsent = 256
    * 1024; // bytes; an endless body must not fill the memory of a slow client's server

} // namespace

HttpConnection::HttpConnection(QTcpSocket *socket, QObject *parent) : QObject(parent), m_socket(socket)
{
    m_socket->setParent(this);
    m_tick.setInterval(tickMs);
    connect(&m_tick, &QTimer::timeout, this, &HttpConnection::sendPiece);
    connect(m_socket, &QTcpSocket::readyRead, this, &HttpConnection::readRequest);
    connect(m_socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
}

void HttpConnection::start()
{
    readRequest();
    // A client that has gone before the take-over gives no further signal.
    if (m_socket->state() == QAbstractSocket::UnconnectedState)
        deleteLater();
}

void HttpConnection::readRequest()
{
    m_buffer.append(m_socket->readAll());
    const int end = m_buffer.indexOf("\r\n\r\n");
    if (m_busy)
        return;
    if (end < 0) {
        if (m_buffer.size() > longestHead)
            m_socket->abort();
        return;
    }
    const QByteArray head = m_buffer.left(end);
    m_buffer.remove(0, end + 4);
    const QList<QByteArray> words = head.split('\r').constFirst().split(' ');
    if (words.size() != 3) {
        m_socket->abort();
        return;
    }
    m_busy = true;
    m_wantsBody = words.at(0) != "HEAD";
    m_wantsClose = words.at(2) == "HTTP/1.0" || head.toLower().contains("\r\nconnection: close");
    Q_EMIT requestReceived(words.at(0), QString::fromUtf8(words.at(1)));
}

void HttpConnection::respond(const HttpResponse &response)
{
    m_response = response;
    m_sent = 0;
    if (m_response.delayMs > 0)
        QTimer::singleShot(m_response.delayMs, this, &HttpConnection::sendHead);
    else
        sendHead();
}

void HttpConnection::sendHead()
{
    if (m_socket->state() != QAbstractSocket::ConnectedState)
        return;
    Q_EMIT responseSent(m_response);
    m_socket->write(m_response.head());
    if (!m_wantsBody || m_response.body.isEmpty()) {
        finish();
    } else if (m_response.isEndless || m_response.bytesPerTick > 0) {
        m_tick.start();
    } else {
        m_socket->write(m_response.body);
        finish();
    }
}

void HttpConnection::sendPiece()
{
    if (m_socket->state() != QAbstractSocket::ConnectedState) {
        m_tick.stop();
        return;
    }
    if (m_response.isEndless) {
        if (m_socket->bytesToWrite() < mostUnsent)
            m_socket->write(m_response.body);
        return;
    }
    m_socket->write(m_response.body.mid(m_sent, m_response.bytesPerTick));
    m_sent += m_response.bytesPerTick;
    if (m_sent >= m_response.body.size())
        finish();
}

void HttpConnection::finish()
{
    m_tick.stop();
    m_busy = false;
    if (m_wantsClose || m_response.closeAfter) {
        m_socket->disconnectFromHost();
        return;
    }
    // The next request may be here already.
    QMetaObject::invokeMethod(this, &HttpConnection::readRequest, Qt::QueuedConnection);
}
