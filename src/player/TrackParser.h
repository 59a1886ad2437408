// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/Album.h"
#include "player/Song.h"

#include <QCborMap>
#include <QJsonValue>

/// The music server's objects read into library items. Plain functions; they live wherever the items do.
///
/// Long lists are read as CBOR maps: that is how Qt keeps JSON objects, the view costs nothing, and on small objects the
/// map's own look-up takes half the time.
namespace TrackParser {

/// Album and artists of a track object, by the scheme of its `uri`: podcasts show the album's comment and the album's
/// artists, radio streams no artists. What is missing, or of the wrong type, stays empty.
SongDetails detailsOf(const QString &uri, const QCborMap &track);

/// Completes a row of a list from a track object, by the scheme of the song's own uri; what that scheme does not
/// know stays as it was. A radio stream's name is taken over as well. What is equal in `before`, the details of the
/// song that was filled last, is shared; `before` then has those of this one.
void fill(Song *song, const QCborMap &track, SongDetails *before);
/// Takes the artists of a track or album object.
void fill(Album *album, const QCborMap &entry);

/// A JSON number of milliseconds as whole seconds, rounded up; 0 for anything that is no whole number.
int wholeSeconds(const QJsonValue &milliseconds);

} // namespace TrackParser
