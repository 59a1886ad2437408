// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "link/StreamSplitter.h"

#include <QTcpSocket>
#include <QTimer>

/**
 * The TCP socket of the device link: dials, numbers and enciphers what goes out, splits and deciphers what comes
 * in, and watches over the connection with one timer.
 *
 * Owned by HalvoraConnection; lives, like its timer, in the link's thread. It takes no action of its own on
 * Qt's disconnected and error signals: a loss is found by the watchdog at its next tick, whatever caused it.
 */
class HalvoraConnSocket final : public QTcpSocket
{
    Q_OBJECT

public:
    explicit HalvoraConnSocket(QObject *parent = nullptr);
    ~HalvoraConnSocket() override;

    /// Dials `host`:`port` and starts the watchdog. The send counter starts at 0 again and half a frame of an
    /// earlier connection is forgotten. An unusable address shows only through connectionError(), in time.
    void connectToServer(const QString &host, int port);

    /// Sends `message` as one frame under the next number and replaces it by the numbered text. On a socket that
    /// is not connected it does nothing: the message is lost and takes no number.
    void writeMessage(QString &message);

    /// Whether a message has gone out since the last dial.
    bool hasSpoken() const { return m_sendCounter > 0; }

Q_SIGNALS:
    void elaborateCommand(QString command); ///< a whole deciphered BROAD text, polls excepted
    void connectionOpen();                  ///< the TCP connection is up, the login may go out
    void connectionEstablished();           ///< the device has accepted the login
    void connectionError();                 ///< a time limit has passed; the socket is closed
    void connectionMustRestart();           ///< the connection was lost; the socket wants to be dialled again
    void authenticationRefused();           ///< the device has refused the login; the socket is closed

public Q_SLOTS:
    void socketConnected();
    void socketDisconnected();
    void socketReadStream();
    void bytesWritten(qint64 bytes);
    void socketError(QAbstractSocket::SocketError socketError);
    void timerTimeout();

private:
    void processFrame(const QByteArray &frame);
    void joined();
    void refused();
    void broadReceived(const QString &plain, const QStringRef &subCode);
    bool limitReached(int *ticks, int limit);

    QTimer m_watchdog;
    StreamSplitter m_splitter;
    int m_sendCounter = 0;
    int m_joinTicks = 0;
    int m_aliveTicks = 0;
    int m_dialTicks = 0;
    bool m_awaitingJoin = false;
    bool m_dialing = false;
    bool m_aliveWatch = true;
};
