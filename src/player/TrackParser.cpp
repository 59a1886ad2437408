// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/TrackParser.h"

#include <QCborArray>
#include <QJsonObject>
#include <QtMath>

namespace {

struct Artists
{
    QStringList names;
    QStringList uris;
};

// An artist adds only what it has, so the two lists need not be parallel.
Artists artistsIn(const QCborValue &array)
{
    Artists artists;
    const QCborArray objects = array.toArray();
    for (const QCborValue &value : objects) {
        const QCborMap artist = value.toMap();
        const QCborValue name = artist.value(QLatin1String("name"));
        const QCborValue uri = artist.value(QLatin1String("uri"));
        if (!name.isUndefined())
            artists.names.append(name.toString());
        if (!uri.isUndefined())
            artists.uris.append(uri.toString());
    }
    return artists;
}

void setArtistNames(SongDetails *song, const QStringList &names)
{
    song->artists = names;
    // One name alone is shared, not copied: a long queue holds it for every track.
    song->artistsString = names.size() == 1 ? names.constFirst() : names.join(QLatin1String(", "));
}

void fillPodcast(SongDetails *song, const QCborMap &, const QCborMap &album)
{
    song->album = album.value(QLatin1String("comment")).toString();
    setArtistNames(song, artistsIn(album.value(QLatin1String("artists"))).names);
}

void fillRadioStream(SongDetails *song, const QCborMap &, const QCborMap &album)
{
    song->album = album.value(QLatin1String("name")).toString();
}

void fillTrack(SongDetails *song, const QCborMap &track, const QCborMap &album)
{
    song->albumUri = album.value(QLatin1String("uri")).toString();
    song->album = album.value(QLatin1String("name")).toString();
    const Artists artists = artistsIn(track.value(QLatin1String("artists")));
    song->artistsUri = artists.uris;
    setArtistNames(song, artists.names);
}

struct Scheme
{
    QLatin1String prefix;
    void (*fill)(SongDetails *, const QCborMap &track, const QCborMap &album);
    bool renames = false; // whether a later answer knows the name better than the list did
};

constexpr Scheme schemes[] = {
    {QLatin1String("podcast+", 8), fillPodcast},
    {QLatin1String("tunein:", 7), fillRadioStream, true},
};

constexpr Scheme anyOther{QLatin1String(), fillTrack};

const Scheme &schemeOf(const QString &uri)
{
    for (const Scheme &scheme : schemes) {
        if (uri.startsWith(scheme.prefix))
            return scheme;
    }
    return anyOther;
}

QCborMap albumOf(const QCborMap &track)
{
    return track.value(QLatin1String("album")).toMap();
}

} // namespace

SongDetails TrackParser::detailsOf(const QString &uri, const QCborMap &track)
{
    SongDetails song;
    schemeOf(uri).fill(&song, track, albumOf(track));
    return song;
}

void TrackParser::fill(Song *song, const QCborMap &track, SongDetails *before)
{
    const Scheme &scheme = schemeOf(song->uri());
    SongDetails details = song->details();
    scheme.fill(&details, track, albumOf(track));
    details.share(*before);
    *before = details;
    song->setDuration(wholeSeconds(track.value(QLatin1String("duration")).toJsonValue()));
    song->setDetails(details);
    if (scheme.renames)
        song->setName(track.value(QLatin1String("name")).toString());
}

void TrackParser::fill(Album *album, const QCborMap &entry)
{
    const Artists artists = artistsIn(entry.value(QLatin1String("artists")));
    album->setArtistsUri(artists.uris);
    album->setArtists(artists.names);
    album->setArtistsString(artists.names.join(QLatin1String(", ")));
}

int TrackParser::wholeSeconds(const QJsonValue &milliseconds)
{
    return qCeil(milliseconds.toInt() / 1000.0);
}
