// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QStringList>
#include <QVector>

#include "simulator/DeviceState.h"

/**
 * The device's announcements as texts, made from its state. Plain functions without a socket.
 */
namespace DeviceMessages {

/// One announcement: its code and its fields from the fifth on.
struct Broad
{
    int code = 0;
    QStringList fields;
};

/// The codes of announcements.
enum Code {
    Sources = 0,
    Outputs = 1,
    Routes = 2,
    OutputValues = 3,
    SourceVolume = 4,
    KeepAlive = 5,
    AirPlay = 10,
    PlaylistEntries = 25,
    PlaylistsChanged = 26,
    DumpEnd = 500
};

Broad sources(const DeviceState &state);
Broad outputs(const DeviceState &state);
/// An output without a source is a field with its index alone.
Broad routes(const DeviceState &state);
Broad outputValues(const OutputState &output);
Broad sourceVolume(const SourceState &source);
/// The texts are left out while AirPlay is off.
Broad airPlay(const SourceState &source);
Broad playlistEntries(const DeviceState &state);

/// Everything the device tells a client that asks for its state, in order; the end mark comes last.
QVector<Broad> dump(const DeviceState &state);

/// The message as it is enciphered: number, keyword, code, the unread field, then the fields.
QString text(int deviceNumber, const Broad &broad);

} // namespace DeviceMessages
