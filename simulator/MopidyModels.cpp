// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/MopidyModels.h"

#include "simulator/PlaylistShelf.h"

namespace {

QJsonObject model(const QString &name)
{
    return {{QStringLiteral("__model__"), name}};
}

void put(QJsonObject &object, const QString &key, const QString &text)
{
    if (!text.isEmpty())
        object.insert(key, text);
}

void put(QJsonObject &object, const QString &key, int number)
{
    if (number > 0)
        object.insert(key, number);
}

void put(QJsonObject &object, const QString &key, const QJsonArray &array)
{
    if (!array.isEmpty())
        object.insert(key, array);
}

void putArtists(QJsonObject &object, const QVector<CatalogueArtist> &artists)
{
    QJsonArray array;
    for (const CatalogueArtist &artist : artists)
        array << MopidyModels::artist(artist);
    put(object, QStringLiteral("artists"), array);
}

} // namespace

QJsonObject MopidyModels::artist(const CatalogueArtist &artist)
{
    QJsonObject object = model(QStringLiteral("Artist"));
    put(object, QStringLiteral("uri"), artist.uri);
    put(object, QStringLiteral("name"), artist.name);
    return object;
}

QJsonObject MopidyModels::album(const CatalogueTrack &track)
{
    QJsonObject object = model(QStringLiteral("Album"));
    put(object, QStringLiteral("uri"), track.albumUri);
    put(object, QStringLiteral("name"), track.albumName);
    put(object, QStringLiteral("comment"), track.albumComment);
    putArtists(object, track.albumArtists);
    return object;
}

QJsonObject MopidyModels::searchResult(const QString &uri, const QJsonArray &tracks, const QJsonArray &albums,
                                       const QJsonArray &artists)
{
    QJsonObject object = model(QStringLiteral("SearchResult"));
    put(object, QStringLiteral("uri"), uri);
    put(object, QStringLiteral("tracks"), tracks);
    put(object, QStringLiteral("albums"), albums);
    put(object, QStringLiteral("artists"), artists);
    return object;
}

QJsonObject MopidyModels::playlist(const ShelfPlaylist &playlist, const QJsonArray &tracks)
{
    QJsonObject object = model(QStringLiteral("Playlist"));
    put(object, QStringLiteral("uri"), playlist.uri);
    put(object, QStringLiteral("name"), playlist.name);
    object.insert(QStringLiteral("last_modified"), playlist.lastModified);
    put(object, QStringLiteral("tracks"), tracks);
    return object;
}

QJsonObject MopidyModels::track(const CatalogueTrack &track)
{
    QJsonObject object = model(QStringLiteral("Track"));
    put(object, QStringLiteral("uri"), track.uri);
    put(object, QStringLiteral("name"), track.name);
    put(object, QStringLiteral("length"), track.lengthMs);
    put(object, QStringLiteral("track_no"), track.number);
    put(object, QStringLiteral("genre"), track.genre);
    put(object, QStringLiteral("date"), track.year > 0 ? QString::number(track.year) : QString());
    putArtists(object, track.artists);
    object.insert(QStringLiteral("album"), album(track));
    return object;
}

QJsonObject MopidyModels::tlTrack(int tlid, const CatalogueTrack &track)
{
    QJsonObject object = model(QStringLiteral("TlTrack"));
    object.insert(QStringLiteral("tlid"), tlid);
    object.insert(QStringLiteral("track"), MopidyModels::track(track));
    return object;
}

QJsonObject MopidyModels::ref(const QString &type, const QString &uri, const QString &name)
{
    QJsonObject object = model(QStringLiteral("Ref"));
    object.insert(QStringLiteral("type"), type);
    object.insert(QStringLiteral("uri"), uri);
    object.insert(QStringLiteral("name"), name);
    return object;
}

QJsonObject MopidyModels::image(const QString &uri, int width)
{
    QJsonObject object = model(QStringLiteral("Image"));
    object.insert(QStringLiteral("uri"), uri);
    object.insert(QStringLiteral("width"), width);
    object.insert(QStringLiteral("height"), width);
    return object;
}
