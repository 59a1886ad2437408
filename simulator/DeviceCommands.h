// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QStringList>
#include <QVector>

#include "simulator/DeviceMessages.h"

/**
 * What the device does with a client's command. Plain functions without a socket.
 */
namespace DeviceCommands {

/// The codes of commands.
enum Code {
    RequestState = 17,
    SetVolume = 2000,
    SetMute = 2001,
    SetEqualizer = 2002,
    SetRoute = 2003,
    SetSourceVolume = 2004,
    RenamePlaylist = 2010,
    DeletePlaylist = 2011,
    AssociatePlaylist = 2012
};

/// Carries out a command that changes something, and returns what is to be announced. `arguments` are its
/// fields behind "|100|". An unknown code, index or source, too few arguments and text in place of a number
/// change nothing and return nothing. Values are taken as they come, without bounds. The playlists themselves
/// are the music server's: renaming and deleting only return the notice.
QVector<DeviceMessages::Broad> apply(int code, const QStringList &arguments, DeviceState &state);

} // namespace DeviceCommands
