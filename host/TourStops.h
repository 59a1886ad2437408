// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "SceneVisitor.h"

#include <QString>

#include <functional>
#include <vector>

/// One touch of a person; false when what is to be touched is not there yet.
using TourStep = std::function<bool()>;

/// One screen or pop-up of the client, and the way there from the stop before.
struct TourStop
{
    QString name;                   ///< of the picture, and of the screen in a complaint
    std::vector<TourStep> approach; ///< each from a scene at rest, and tried again until it is true
    const char *screen;             ///< the type that must be in sight then
    int covers;                     ///< how many covers it shows, where the house has any
};

/// The stops of a tour, in a person's order. The steps keep a copy of the visitor.
namespace TourStops {

/// What can be seen in every house that has an output with a source.
std::vector<TourStop> ofAnyHouse(const SceneVisitor &visitor);

/// All screens and pop-ups, with the demo's rooms and music; the demo has one playlist less then, and `loseDevice`,
/// the last step, is to end its connection for good.
std::vector<TourStop> ofTheDemo(const SceneVisitor &visitor, const TourStep &loseDevice);

} // namespace TourStops
