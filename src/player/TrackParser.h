// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QJsonArray>
#include <QJsonObject>

class PlayerItem;
class Song;

/// The music server's objects read into library items. Plain functions; they live wherever the items do.
namespace TrackParser {

/// Album and artists of `track` into `song`, by the scheme of the song's own uri: podcasts show the album's comment
/// and the album's artists, radio streams no artists. Missing keys leave the song's defaults.
void fillAlbumAndArtists(Song *song, const QJsonObject &track);

/// Adds a list of pictures ("width", 0 when absent, and "uri") to the item's table.
void addImages(PlayerItem *item, const QJsonArray &pictures);

/// A JSON number of milliseconds as whole seconds, rounded up; 0 for anything that is no whole number.
int wholeSeconds(const QJsonValue &milliseconds);

} // namespace TrackParser
