// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "simulator/CoverPalette.h"

class QPainter;

/**
 * The pictures of covers, without type: plain functions that fill a square of `side` units, whatever the
 * painter makes of a unit.
 */
namespace CoverCompositions {

constexpr int side = 600;
constexpr int count = 8;

/// Where the type goes best.
enum class Place { Top, Bottom, Poster };

/// Draws composition `which` (0 to count - 1) in its details by `detail`, and says where the type goes.
Place draw(int which, QPainter &painter, const CoverPalette &palette, quint64 detail);

} // namespace CoverCompositions
