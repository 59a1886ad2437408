// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

/// What the web service says about an album. A plain function, for any thread.
namespace BackupAnswer {

/// The addresses of the album's pictures by a width in pixels that stands for the service's word of size: 30 to 350, and
/// 128 for words that are not known. None when `body` is no JSON object, names an error or has no album.
std::optional<QHash<int, QString>> pictures(const QByteArray &body);

} // namespace BackupAnswer
