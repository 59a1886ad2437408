// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QJsonValue>
#include <QStringList>

#include <optional>

#include "simulator/RpcTable.h"

/**
 * A parameter that must be a list of uris, as the music server checks it. Plain functions.
 */
namespace UriList {

/// What the server answers to a value that is no list (nor a table, whose keys count) or has an entry without a scheme; nothing for a good one.
std::optional<RpcReply> refusal(const QJsonValue &value);

QStringList uris(const QJsonValue &value); ///< of a good one

} // namespace UriList
