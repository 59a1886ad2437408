// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/RpcMethods.h"

#include <QJsonArray>

#include <algorithm>

#include "simulator/MopidyModels.h"
#include "simulator/PlaylistShelf.h"
#include "simulator/RpcTable.h"

namespace {

using Handler = RpcReply (*)(PlaylistShelf *playlists, const Catalogue &catalogue,
                             const QJsonObject &parameters);

QString nameOf(const Catalogue &catalogue, const QString &uri)
{
    const std::optional<CatalogueTrack> track = catalogue.find(uri);
    return track ? track->name : QString();
}

RpcReply asList(PlaylistShelf *playlists, const Catalogue &, const QJsonObject &)
{
    QVector<ShelfPlaylist> all = playlists->playlists();
    std::sort(all.begin(), all.end(),
              [](const ShelfPlaylist &left, const ShelfPlaylist &right) { return left.name < right.name; });
    QJsonArray refs;
    for (const ShelfPlaylist &playlist : qAsConst(all))
        refs << MopidyModels::ref(QStringLiteral("playlist"), playlist.uri, playlist.name);
    return {refs, {}};
}

RpcReply getItems(PlaylistShelf *playlists, const Catalogue &catalogue, const QJsonObject &parameters)
{
    const ShelfPlaylist *playlist = playlists->find(parameters.value(QStringLiteral("uri")).toString());
    if (!playlist)
        return {};
    QJsonArray refs;
    for (const QString &uri : playlist->trackUris)
        refs << MopidyModels::ref(QStringLiteral("track"), uri, nameOf(catalogue, uri));
    return {refs, {}};
}

RpcReply lookup(PlaylistShelf *playlists, const Catalogue &catalogue, const QJsonObject &parameters)
{
    const ShelfPlaylist *playlist = playlists->find(parameters.value(QStringLiteral("uri")).toString());
    if (!playlist)
        return {};
    QJsonArray tracks;
    for (const QString &uri : playlist->trackUris) {
        tracks << QJsonObject{{QStringLiteral("__model__"), QStringLiteral("Track")},
                              {QStringLiteral("uri"), uri},
                              {QStringLiteral("name"), nameOf(catalogue, uri)}};
    }
    return {MopidyModels::playlist(*playlist, tracks), {}};
}

// One under an existing name is emptied.
RpcReply create(PlaylistShelf *playlists, const Catalogue &, const QJsonObject &parameters)
{
    const QString name = parameters.value(QStringLiteral("name")).toString();
    const QString uri = playlists->put(name, {});
    return {MopidyModels::playlist(*playlists->find(uri)), {}};
}

bool isModel(const QJsonValue &value, const QString &name)
{
    return value.toObject().value(QStringLiteral("__model__")).toString() == name;
}

// An unknown uri makes a playlist, another name renames it. Anything but tracks among the tracks breaks the server
// before it has read the request to its end.
RpcReply save(PlaylistShelf *playlists, const Catalogue &, const QJsonObject &parameters)
{
    const QJsonObject playlist = parameters.value(QStringLiteral("playlist")).toObject();
    if (!isModel(playlist, QStringLiteral("Playlist")))
        return RpcReply::applicationError(QStringLiteral("ValidationError"),
                                          QStringLiteral("Expected a Playlist instance"));
    QStringList uris;
    const QJsonArray tracks = playlist.value(QStringLiteral("tracks")).toArray();
    for (const QJsonValue &track : tracks) {
        if (!isModel(track, QStringLiteral("Track")))
            return RpcReply{{}, {}, true};
        uris << track.toObject().value(QStringLiteral("uri")).toString();
    }
    const QString uri = playlist.value(QStringLiteral("uri")).toString();
    if (!uri.startsWith(QLatin1String("m3u:")))
        return {};
    const ShelfPlaylist *known = playlists->find(uri);
    const QString name = playlist.value(QStringLiteral("name")).toString(known ? known->name : uri);
    const QString saved = playlists->save(uri, name, uris);
    return {MopidyModels::playlist(*playlists->find(saved), tracks), {}};
}

RpcReply remove(PlaylistShelf *playlists, const Catalogue &, const QJsonObject &parameters)
{
    return {playlists->remove(parameters.value(QStringLiteral("uri")).toString()), {}};
}

struct Method
{
    QString name;
    QStringList required;
    QStringList optional;
    Handler handler;
};

const QVector<Method> methods{
    {QStringLiteral("as_list"), {}, {}, asList},
    {QStringLiteral("get_items"), {QStringLiteral("uri")}, {}, getItems},
    {QStringLiteral("lookup"), {QStringLiteral("uri")}, {}, lookup},
    {QStringLiteral("create"), {QStringLiteral("name")}, {QStringLiteral("uri_scheme")}, create},
    {QStringLiteral("save"), {QStringLiteral("playlist")}, {}, save},
    {QStringLiteral("delete"), {QStringLiteral("uri")}, {}, remove},
};

} // namespace

void RpcMethods::addPlaylists(RpcTable &table, PlaylistShelf *playlists, const Catalogue &catalogue)
{
    for (const Method &method : methods) {
        table.add(QStringLiteral("core.playlists.") + method.name, method.required, method.optional,
                  [playlists, &catalogue, handler = method.handler](const QJsonObject &parameters) {
                      return handler(playlists, catalogue, parameters);
                  });
    }
}
