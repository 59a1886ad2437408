// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QTcpSocket>

#include "simulator/LinkFaults.h"
#include "simulator/PacedWriter.h"

/**
 * One client of a WireRelay and its way to the peer behind. Owned by the WireRelay, lives on its thread, owns both
 * sockets.
 */
class RelayConnection final : public QObject
{
    Q_OBJECT

public:
    /// Takes `client` over and dials `target` on 127.0.0.1. `faults` must outlive the connection.
    RelayConnection(QTcpSocket *client, quint16 target, const LinkFaults &faults, QObject *parent);
    ~RelayConnection() override;

    void close() { m_client->disconnectFromHost(); } ///< in order
    void reset();
    /// From now on nothing passes, neither way; both ends stay open until one of them ends it.
    void freeze();

Q_SIGNALS:
    void clientSpoke();        ///< bytes have come from the client and not yet been passed on
    void passed(qint64 bytes); ///< that the client has been sent until now, the latest included
    void closed();

private:
    void toPeer();
    void toClient();

    QTcpSocket *m_client;
    QTcpSocket m_peer;
    PacedWriter m_writer;
    qint64 m_passed = 0;
    bool m_frozen = false;
};
