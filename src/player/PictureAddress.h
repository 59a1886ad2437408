// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QJsonValue>

/// Where a music server names its pictures relative to itself, the addresses are completed before anyone reads
/// them.
namespace PictureAddress {

/// `pictures`: the result of "core.library.get_images", an object of arrays of pictures by library key. Each "uri" that
/// begins with a single "/" gets "http://" + `host` + ":" + `port` in front; all else comes back as it is.
QJsonValue completed(const QJsonValue &pictures, const QString &host, const QString &port);

} // namespace PictureAddress
