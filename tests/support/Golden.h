// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QImage>

/**
 * Pictures of how screens have to look: tests/golden/<name>.png.
 *
 * A pixel is right if one of its nine neighbours in the other picture, itself included, differs by no more than
 * `colourTolerance` in any of the three colours; both ways round, so that nothing may be missing and nothing be too
 * much. What rasterisers do differently stays within that; what has moved by a few pixels does not. A picture is right
 * with up to `wrongPixels` wrong ones.
 */
namespace Golden {

constexpr int colourTolerance = 40; ///< of 255
constexpr int wrongPixels = 40;     ///< our smallest icon, moved by 5 pixels, has 138

/// Whether the environment variable HALVORA_RENEW_GOLDEN is set: then save() instead of comparing.
bool isRenewing();
void save(const QImage &picture, const QString &name);

/// What is wrong with a picture; empty if nothing is.
QString complaint(const QImage &picture, const QString &name);
/// Writes a picture in which what is wrong is red, the rest pale, to the build folder, and the picture as seen beside
/// it. Returns the path of the former.
QString writeDifference(const QImage &picture, const QString &name);

} // namespace Golden
