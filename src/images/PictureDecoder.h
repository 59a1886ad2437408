// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QImage>

/// Bytes from anywhere to a picture, within bounds. Callable on any thread.
namespace PictureDecoder {

constexpr qint64 maxBytes = 32 * 1024 * 1024;  ///< of a body
constexpr qint64 maxPixels = 64 * 1000 * 1000; ///< of a picture, by its own header

/// The picture at full size; null for what is no picture and for what is over a bound, before any memory is
/// spent on its pixels.
QImage decoded(const QByteArray &body);

} // namespace PictureDecoder
