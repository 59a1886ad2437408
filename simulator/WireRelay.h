// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QList>
#include <QObject>
#include <QTcpServer>

#include "simulator/LinkFaults.h"

class RelayConnection;

/**
 * A stretch of wire on 127.0.0.1 in front of any peer, to be cut, slowed and frozen at will: what happens to connections
 * between two hosts, whatever is spoken on them. The peer may come and go behind it.
 *
 * Never blocks; everything happens in the event loop of the thread it lives on. It owns its connections and ends them
 * when it is destroyed.
 */
class WireRelay final : public QObject
{
    Q_OBJECT

public:
    explicit WireRelay(QObject *parent = nullptr);
    ~WireRelay() override;

    /// Starts to listen on a port of the system's choice, and on the same one again after stopListening(). False when
    /// it cannot be had.
    bool listen();
    /// Takes no more connections; the open ones stay. Further ones are refused by the system.
    void stopListening() { m_server.close(); }
    quint16 port() const { return m_port; }
    /// The port of the peer, for connections from now on; 0, at the start, refuses.
    void setTarget(quint16 port) { m_target = port; }

    /// How bytes go to clients: byteByByte, cutAt, splitPauseMs and closeAfterBytes; all others mean nothing here. The
    /// limits are counted for each connection.
    LinkFaults &faults() { return m_faults; }

    void closeAll(); ///< ends every connection in order
    void resetAll(); ///< the same with a reset
    /// Lets nothing pass any more, on open connections and on new ones, and leaves them open: a peer that hangs.
    void freeze();
    /// Connections may come and pass again; those of the frozen time are reset, as by a host that has started again.
    void thaw();

    int liveConnections() const { return m_connections.size(); }
    int acceptedConnections() const { return m_accepted; } ///< ever

Q_SIGNALS:
    void clientConnected();
    void clientSpoke();        ///< bytes have come from a client and not yet been passed on
    void passed(qint64 bytes); ///< that a client has been sent on its connection until now
    void clientDisconnected();

private:
    void acceptConnections();
    void forget(RelayConnection *connection);
    void each(void (RelayConnection::*act)());

    QTcpServer m_server;
    quint16 m_port = 0;
    quint16 m_target = 0;
    LinkFaults m_faults;
    QList<RelayConnection *> m_connections;
    int m_accepted = 0;
    bool m_frozen = false;
};
