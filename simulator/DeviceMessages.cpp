// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/DeviceMessages.h"

namespace {

QString flag(bool value)
{
    return value ? QStringLiteral("1") : QStringLiteral("0");
}

QString joined(const QStringList &parts)
{
    return parts.join(QLatin1Char('@'));
}

} // namespace

DeviceMessages::Broad DeviceMessages::sources(const DeviceState &state)
{
    Broad broad{Sources, {}};
    for (const SourceState &source : state.sources) {
        QStringList parts{QString::number(source.index), source.name, flag(source.hasPlayer)};
        if (source.hasPlayer)
            parts << source.address << source.port;
        broad.fields << joined(parts);
    }
    return broad;
}

DeviceMessages::Broad DeviceMessages::outputs(const DeviceState &state)
{
    Broad broad{Outputs, {}};
    for (const OutputState &output : state.outputs)
        broad.fields << joined({QString::number(output.index), output.name});
    return broad;
}

DeviceMessages::Broad DeviceMessages::routes(const DeviceState &state)
{
    Broad broad{Routes, {}};
    for (const OutputState &output : state.outputs) {
        QStringList parts{QString::number(output.index)};
        if (output.source >= 0)
            parts << QString::number(output.source);
        broad.fields << joined(parts);
    }
    return broad;
}

DeviceMessages::Broad DeviceMessages::outputValues(const OutputState &output)
{
    return {OutputValues,
            {QString::number(output.index), QString::number(output.volume), flag(output.mute),
             QString::number(output.bass), QString::number(output.middle), QString::number(output.treble),
             QString::number(output.loudness)}};
}

DeviceMessages::Broad DeviceMessages::sourceVolume(const SourceState &source)
{
    return {SourceVolume, {QString::number(source.index), QString::number(source.volume)}};
}

DeviceMessages::Broad DeviceMessages::airPlay(const SourceState &source)
{
    const AirPlayState &now = source.airPlay;
    Broad broad{AirPlay, {QString::number(source.index), flag(now.on)}};
    if (now.on)
        broad.fields << now.track << now.album << now.artist << now.image;
    return broad;
}

DeviceMessages::Broad DeviceMessages::playlistEntries(const DeviceState &state)
{
    Broad broad{PlaylistEntries, {}};
    for (const PlaylistEntryState &entry : state.playlistEntries)
        broad.fields << joined({QString::number(entry.id), entry.name, entry.ref});
    return broad;
}

QVector<DeviceMessages::Broad> DeviceMessages::dump(const DeviceState &state)
{
    QVector<Broad> all{sources(state), outputs(state)};
    for (const OutputState &output : state.outputs)
        all << outputValues(output);
    for (const SourceState &source : state.sources)
        all << sourceVolume(source);
    for (const SourceState &source : state.sources) {
        if (source.hasPlayer)
            all << airPlay(source);
    }
    all << playlistEntries(state) << routes(state) << Broad{DumpEnd, {}};
    return all;
}

QString DeviceMessages::text(int deviceNumber, const Broad &broad)
{
    // The fourth field has a place in every announcement and a meaning in none.
    const QStringList head{QString::number(deviceNumber), QStringLiteral("BROAD"),
                           QString::number(broad.code), QStringLiteral("100")};
    return (head + broad.fields).join(QLatin1Char('|'));
}
