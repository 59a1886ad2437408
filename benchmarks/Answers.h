// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QJsonObject>

#include <memory>

class HalvoraPlayer;

/// A music server's answers of any length, and a player that waits for one.
namespace Answers {

/// The reply to request `id`, as text.
QByteArray reply(const QJsonValue &result, int id);

/// The reply to request 0: a tracklist, or the tracks of one directory.
QByteArray tracklist(int entries);
QByteArray directory(int rows);

/// What a lookup of the last rows of directory(rows) gives.
QJsonObject lookupOfLast(int looked, int rows);

/// Whose pictures a track has.
enum class Covers { OfAlbums, OfTracks };

/// The addresses of pictures for the entries of tracklist(rows), or of directory(rows): three widths for each track.
QJsonObject pictures(int rows, Covers covers);

/// Whether the last entry of the player's queue is that of tracklist(entries): its key, name, album and artists. Reads
/// that entry's details.
bool endsTracklist(HalvoraPlayer *player, int entries);

/// Through Qt's parser alone.
double secondsOfParser(const QByteArray &text);

/// A player that dials a port where nobody answers, so that its next request is number 0 and stays pending.
std::unique_ptr<HalvoraPlayer> waitingPlayer();

/// Lets the event loop come to rest, in which what lists have dropped is freed. Takes a Reclaimer; without
/// that each turn is slower than the one before.
void settle();

} // namespace Answers
