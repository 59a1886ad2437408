// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QObject>
#include <QQueue>
#include <QTcpSocket>

#include "simulator/LinkFaults.h"
#include "simulator/PacedWriter.h"

/**
 * One client of the simulated device: cuts what it sends into messages, and enciphers what it is sent. Owned
 * by the DeviceSimulator, lives on its thread, and owns the socket.
 */
class DeviceConnection final : public QObject
{
    Q_OBJECT

public:
    /// Takes the socket over. `faults` must outlive the connection; it is read at each message.
    DeviceConnection(QTcpSocket *socket, const LinkFaults &faults, QObject *parent);

    bool isJoined() const { return m_joined; }
    void setJoined() { m_joined = true; }

    /// Polls sent since the client last said that it is alive.
    int unansweredPolls() const { return m_unansweredPolls; }
    void countPoll() { ++m_unansweredPolls; }
    void clearPolls() { m_unansweredPolls = 0; }

    /// Enciphers one message and sends it as a frame.
    void sendPlain(const QString &text);

    /// Sends bytes as they stand, without terminator.
    void sendRaw(const QByteArray &bytes) { m_writer.append(bytes); }

    /// Ends the connection in order.
    void close() { m_socket->disconnectFromHost(); }

    /// Ends the connection with a reset, so that the client sees an error and no end of stream.
    void reset();

Q_SIGNALS:
    /// A frame without its terminator, as it came from the stream.
    void frameReceived(const QByteArray &frame);

    /// A deciphered message with its number; comes late when answers are to be delayed.
    void messageReceived(const QString &numbered);

    /// A message as it was before it was enciphered.
    void plainSent(const QString &text);

    void closed();

private:
    void readStream();
    void accept(const QByteArray &frame);

    QTcpSocket *m_socket;
    const LinkFaults &m_faults;
    PacedWriter m_writer;
    QByteArray m_buffer;
    QQueue<QString> m_delayed;
    bool m_joined = false;
    int m_unansweredPolls = 0;
};
