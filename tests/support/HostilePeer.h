// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QTcpServer>
#include <QThread>

#include <atomic>
#include <functional>

class QTcpSocket;

/**
 * A server on 127.0.0.1 in a thread of its own that serves one connection after the other by a function, in blocking
 * calls, and ends each behind it. It ends with this object, whatever it is at.
 */
class HostilePeer final
{
public:
    class Connection;
    /// `number` counts connections from 0.
    using Script = std::function<void(Connection &connection, int number)>;

    explicit HostilePeer(Script script);
    ~HostilePeer();

    quint16 port() const { return m_port; }
    int served() const { return m_served; } ///< connections that are done with

private:
    std::atomic<bool> m_ends{false};
    std::atomic<int> m_served{0};
    std::atomic<quint16> m_port{0};
    QThread *m_thread = nullptr;
};

/// For the functions; in their thread.
class HostilePeer::Connection final
{
public:
    Connection(QTcpSocket *socket, const std::atomic<bool> &ends) : m_socket(socket), m_ends(ends) { }

    bool isOpen() const; ///< false also when the peer is to end
    QByteArray readUntil(const QByteArray &end);
    void send(const QByteArray &bytes);                   ///< waits until they are on their way
    void sendMuch(const QByteArray &piece, qint64 bytes); ///< the piece again and again
    void waitForTheEnd();                                 ///< until the other side closes

    bool becomeWebSocket();
    /// The head of a WebSocket frame of so many bytes: by default of the only one of a text.
    void announce(quint64 bytes, char kind = '\x81');
    void sendText(const QByteArray &text) { sendText(text, {}, 0, {}); } ///< as one WebSocket message
    /// The same of `head`, so many bytes of the piece, and `tail`.
    void sendText(const QByteArray &head, const QByteArray &piece, qint64 bytes, const QByteArray &tail);

private:
    QTcpSocket *m_socket;
    const std::atomic<bool> &m_ends;
};
