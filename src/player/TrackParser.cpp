// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/TrackParser.h"

#include "player/Song.h"

#include <QtMath>

namespace {

// What each entry of an array of objects has under `key`; entries without it add nothing.
QStringList textsUnder(const QString &key, const QJsonArray &objects)
{
    QStringList texts;
    for (const QJsonValue &value : objects) {
        const QJsonObject object = value.toObject();
        const auto found = object.constFind(key);
        if (found != object.constEnd())
            texts.append(found.value().toString());
    }
    return texts;
}

void setArtistNames(Song *song, const QJsonArray &artists)
{
    const QStringList names = textsUnder(QStringLiteral("name"), artists);
    song->setArtists(names);
    song->setArtistsString(names.join(QLatin1String(", ")));
}

void fillPodcast(Song *song, const QJsonObject &, const QJsonObject &album)
{
    song->setAlbum(album.value(QLatin1String("comment")).toString());
    setArtistNames(song, album.value(QLatin1String("artists")).toArray());
}

void fillRadioStream(Song *song, const QJsonObject &, const QJsonObject &album)
{
    song->setAlbum(album.value(QLatin1String("name")).toString());
}

void fillTrack(Song *song, const QJsonObject &track, const QJsonObject &album)
{
    song->setAlbumUri(album.value(QLatin1String("uri")).toString());
    song->setAlbum(album.value(QLatin1String("name")).toString());
    const QJsonArray artists = track.value(QLatin1String("artists")).toArray();
    song->setArtistsUri(textsUnder(QStringLiteral("uri"), artists));
    setArtistNames(song, artists);
}

struct Scheme
{
    const char *prefix;
    void (*fill)(Song *, const QJsonObject &track, const QJsonObject &album);
};

constexpr Scheme schemes[] = {
    {"podcast+", fillPodcast},
    {"tunein:", fillRadioStream},
    {"", fillTrack},
};

} // namespace

void TrackParser::fillAlbumAndArtists(Song *song, const QJsonObject &track)
{
    const QJsonObject album = track.value(QLatin1String("album")).toObject();
    for (const Scheme &scheme : schemes) {
        if (song->uri().startsWith(QLatin1String(scheme.prefix))) {
            scheme.fill(song, track, album);
            return;
        }
    }
}

void TrackParser::addImages(PlayerItem *item, const QJsonArray &pictures)
{
    for (const QJsonValue &value : pictures) {
        const QJsonObject picture = value.toObject();
        item->images->insert(picture.value(QLatin1String("width")).toInt(),
                             picture.value(QLatin1String("uri")).toString());
    }
}

int TrackParser::wholeSeconds(const QJsonValue &milliseconds)
{
    return qCeil(milliseconds.toInt() / 1000.0);
}
