// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/JsonText.h"

#include <optional>

class QObject;

/**
 * A long reply of the music server, taken apart without its result being read. Plain functions of the GUI
 * thread.
 */
struct LongReply
{
    static constexpr int leastLength = 4096; ///< in characters; below that the way of all replies is as fast

    int id = 0;
    JsonText result;

    /// Nothing for a message that is short, no reply, or not of the plain order "jsonrpc" or "id", then
    /// "result" alone.
    static std::optional<LongReply> of(const QString &message);

    /// Hands the result to `receiver` if it is a LongReplyReader. False when it is none, or has done nothing.
    bool deliverTo(QObject *receiver, const char *handler) const;
};
