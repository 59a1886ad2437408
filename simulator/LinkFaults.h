// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>

/**
 * What the simulated device does wrong. All off by default; a change holds from the next message on, for open
 * connections too, except where told otherwise.
 */
struct LinkFaults
{
    bool refuseLogin = false;     ///< every login is answered with a refusal
    bool ignoreLogin = false;     ///< no login is ever answered
    bool silentAfterJoin = false; ///< accepts the login, then neither polls nor answers; commands change
                                  ///< nothing. What a test announces by itself is still sent.
    bool closeOnAccept = false;   ///< ends each new connection at once, in order
    int closeAfterBytes =
        -1; ///< ends a connection, in order, when it has been sent this many bytes; -1: never

    bool byteByByte = false; ///< every byte is a write of its own
    int cutAt = -1;       ///< splits the stream of a connection before this byte (counted from 0); -1: never
    int splitPauseMs = 5; ///< pause between two writes of a split stream, in milliseconds

    QByteArray garbageBeforeFrame; ///< written, as it stands, in front of every frame
    bool wrongPadding = false;     ///< pads messages so that a rest of control characters stays at their end
    int answerDelayMs = 0;         ///< reads each message this late; messages keep their order
};
