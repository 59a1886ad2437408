// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>

class HalvoraConnSocket;

/**
 * The worker of one run of the link: owns the socket and hands messages between it and HalvoraConnThread.
 *
 * Made, used and deleted in the link's thread by HalvoraConnThread::run(). It deletes its socket.
 */
class HalvoraConnection final : public QObject
{
    Q_OBJECT

public:
    /// `host`: a name or an address; `port`: TCP port. Nothing is dialled before startConnection().
    HalvoraConnection(const QString &host, int port);
    ~HalvoraConnection() override;

Q_SIGNALS:
    void connectionOpen();
    void connectionEstablished();
    void connectionError();
    /// Declared for a listener to come. The socket's refusal is not passed on: a refused client dials again.
    void authenticationRefused();
    void elaborateCommandReceived(QString command);

public Q_SLOTS:
    void startConnection();
    void killConnection();
    /// Sends a command of the device model. It is lost while the link is down, and until the
    /// login has gone out, which must be the first message of a connection.
    void sendCommand(QString message);
    /// Sends a message of the link itself, as it is.
    void sendString(QString message);
    /// Dials, also again, on the same socket.
    void startSocket();

private:
    QString m_host;
    int m_port;
    HalvoraConnSocket *m_socket = nullptr;
};
