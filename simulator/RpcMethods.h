// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "simulator/Catalogue.h"

class Playback;
class PlaylistShelf;
class RpcTable;
class Tracklist;

/// Which form of "core.tracklist.remove" the server understands; the other one is refused as an unknown
/// argument.
enum class RemoveForm { Tlid, Criteria };

/**
 * The music server's methods by topic, each topic in a source of its own. Every function adds its methods to
 * the table; what it is given by pointer or reference must outlive the table.
 */
namespace RpcMethods {

void addPlayback(RpcTable &table, Playback *playback);
void addTracklist(RpcTable &table, Tracklist *tracklist, Playback *playback, const Catalogue &catalogue);
/// Adds or replaces the removal alone.
void addTracklistRemove(RpcTable &table, Tracklist *tracklist, RemoveForm form);
void addLibrary(RpcTable &table, const Catalogue &catalogue);
void addPlaylists(RpcTable &table, PlaylistShelf *playlists, const Catalogue &catalogue);

} // namespace RpcMethods
