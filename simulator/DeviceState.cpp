// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/DeviceState.h"

#include <algorithm>

namespace {

template<typename State>
State *withIndex(QVector<State> &states, int index)
{
    const auto found = std::find_if(states.begin(), states.end(),
                                    [index](const State &state) { return state.index == index; });
    return found == states.end() ? nullptr : &*found;
}

SourceState playerSource(int index, const QString &name, int volume)
{
    SourceState source;
    source.index = index;
    source.name = name;
    source.hasPlayer = true;
    source.address = QStringLiteral("127.0.0.1");
    source.port.clear();
    source.volume = volume;
    return source;
}

QVector<OutputState> demoOutputs()
{
    return {
        {1, QStringLiteral("Living Room"), 42, false, 4, 0, 2, 6, 2},
        {2, QStringLiteral("Kitchen"), 28, false, 0, 2, 0, 0, 3},
        {3, QStringLiteral("Dining Room"), 35, true, 2, -1, 3, 0, 2},
        {5, QStringLiteral("Master Bedroom"), 15, false, -3, 0, -4, 10, 5},
        {8, QStringLiteral("Study"), 22, true, 0, 0, 0, 0, -1},
        {9, QStringLiteral("Terrace"), 64, false, 8, -2, 5, 12, 7},
    };
}

QVector<SourceState> demoSources()
{
    SourceState guests = playerSource(5, QStringLiteral("Guest Player"), 55);
    guests.airPlay = {true, QStringLiteral("Hollow Bridges"), QStringLiteral("Paper Lanterns"),
                      QStringLiteral("The Quiet Tides"), QString()};
    SourceState turntable;
    turntable.index = 7;
    turntable.name = QStringLiteral("Turntable");
    turntable.volume = 70;
    return {playerSource(2, QStringLiteral("House Music"), 80),
            playerSource(3, QStringLiteral("Jukebox"), 75), guests, turntable};
}

} // namespace

DeviceState DeviceState::demo()
{
    DeviceState state;
    state.outputs = demoOutputs();
    state.sources = demoSources();
    state.playlistEntries = {
        {1, QStringLiteral("Morning"), QString()},
        {2, QStringLiteral("Dinner"), QString()},
        {3, QStringLiteral("Party"), QString()},
        {4, QStringLiteral("Night"), QString()},
    };
    return state;
}

OutputState *DeviceState::output(int index)
{
    return withIndex(outputs, index);
}

SourceState *DeviceState::source(int index)
{
    return withIndex(sources, index);
}
