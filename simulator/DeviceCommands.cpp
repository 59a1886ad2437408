// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/DeviceCommands.h"

#include <algorithm>
#include <map>

namespace {

using Answer = QVector<DeviceMessages::Broad>;

// The numbers in `texts`, all or none.
QVector<int> numbers(const QStringList &texts)
{
    QVector<int> values;
    for (const QString &text : texts) {
        bool isNumber = false;
        values << text.toInt(&isNumber);
        if (!isNumber)
            return {};
    }
    return values;
}

// Runs `change` on the output that the first of `count` numbers names.
template<typename Change>
Answer changeOutput(const QStringList &arguments, int count, DeviceState &state, Change change)
{
    const QVector<int> values = numbers(arguments.mid(0, count));
    OutputState *output = values.size() == count ? state.output(values.first()) : nullptr;
    if (!output)
        return {};
    change(*output, values);
    return {DeviceMessages::outputValues(*output)};
}

Answer setVolume(const QStringList &arguments, DeviceState &state)
{
    return changeOutput(arguments, 2, state, [](OutputState &output, const QVector<int> &values) {
        output.volume = values.at(1);
    });
}

Answer setMute(const QStringList &arguments, DeviceState &state)
{
    return changeOutput(arguments, 2, state, [](OutputState &output, const QVector<int> &values) {
        output.mute = values.at(1) == 1;
    });
}

Answer setEqualizer(const QStringList &arguments, DeviceState &state)
{
    return changeOutput(arguments, 5, state, [](OutputState &output, const QVector<int> &values) {
        output.bass = values.at(1);
        output.middle = values.at(2);
        output.treble = values.at(3);
        output.loudness = values.at(4);
    });
}

Answer setRoute(const QStringList &arguments, DeviceState &state)
{
    const QVector<int> values = numbers(arguments.value(0).split(QLatin1Char('@')));
    OutputState *output = values.size() == 2 ? state.output(values.first()) : nullptr;
    if (!output || (values.at(1) != -1 && !state.source(values.at(1))))
        return {};
    output->source = values.at(1);
    return {DeviceMessages::routes(state)};
}

Answer setSourceVolume(const QStringList &arguments, DeviceState &state)
{
    const QVector<int> values = numbers(arguments.mid(0, 2));
    SourceState *source = values.size() == 2 ? state.source(values.first()) : nullptr;
    if (!source)
        return {};
    source->volume = values.at(1);
    return {DeviceMessages::sourceVolume(*source)};
}

Answer renamePlaylist(const QStringList &arguments, DeviceState &)
{
    if (arguments.size() < 2)
        return {};
    return {{DeviceMessages::PlaylistsChanged, {}}};
}

Answer deletePlaylist(const QStringList &arguments, DeviceState &)
{
    if (arguments.isEmpty())
        return {};
    return {{DeviceMessages::PlaylistsChanged, {}}};
}

Answer associatePlaylist(const QStringList &arguments, DeviceState &state)
{
    const QVector<int> values = numbers(arguments.mid(1, 1));
    if (values.isEmpty())
        return {};
    const auto entry = std::find_if(
        state.playlistEntries.begin(), state.playlistEntries.end(),
        [&values](const PlaylistEntryState &one) { return one.id == values.first(); });
    if (entry == state.playlistEntries.end())
        return {};
    entry->ref = arguments.first();
    return {DeviceMessages::playlistEntries(state)};
}

} // namespace

QVector<DeviceMessages::Broad> DeviceCommands::apply(int code, const QStringList &arguments,
                                                     DeviceState &state)
{
    static const std::map<int, Answer (*)(const QStringList &, DeviceState &)> table{
        {SetVolume, setVolume},
        {SetMute, setMute},
        {SetEqualizer, setEqualizer},
        {SetRoute, setRoute},
        {SetSourceVolume, setSourceVolume},
        {RenamePlaylist, renamePlaylist},
        {DeletePlaylist, deletePlaylist},
        {AssociatePlaylist, associatePlaylist},
    };
    const auto found = table.find(code);
    return found == table.end() ? Answer() : found->second(arguments, state);
}
