// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/HardReset.h"

#include <QTcpSocket>

#include <sys/socket.h>

void hardReset(QTcpSocket *socket)
{
    // Without lingering, the kernel drops what is still to be sent and resets the peer.
    const linger noWait{1, 0};
    setsockopt(int(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &noWait, sizeof noWait);
    socket->abort();
}
