// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

class QTcpSocket;

/// Ends a connection with a reset, so that its peer sees an error and no end of stream. What is still to be sent is lost.
void hardReset(QTcpSocket *socket);
