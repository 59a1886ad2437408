// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/RpcMethods.h"

#include <QJsonArray>

#include "simulator/MopidyModels.h"
#include "simulator/PlaylistShelf.h"
#include "simulator/RpcTable.h"

namespace {

using Handler = QJsonValue (*)(PlaylistShelf *playlists, const Catalogue &catalogue,
                               const QJsonObject &parameters);

QString nameOf(const Catalogue &catalogue, const QString &uri)
{
    const std::optional<CatalogueTrack> track = catalogue.find(uri);
    return track ? track->name : QString();
}

QJsonValue asList(PlaylistShelf *playlists, const Catalogue &, const QJsonObject &)
{
    QJsonArray refs;
    for (const ShelfPlaylist &playlist : playlists->playlists())
        refs << MopidyModels::ref(QStringLiteral("playlist"), playlist.uri, playlist.name);
    return refs;
}

QJsonValue getItems(PlaylistShelf *playlists, const Catalogue &catalogue, const QJsonObject &parameters)
{
    const ShelfPlaylist *playlist = playlists->find(parameters.value(QStringLiteral("uri")).toString());
    if (!playlist)
        return QJsonValue::Null;
    QJsonArray refs;
    for (const QString &uri : playlist->trackUris)
        refs << MopidyModels::ref(QStringLiteral("track"), uri, nameOf(catalogue, uri));
    return refs;
}

QJsonValue lookup(PlaylistShelf *playlists, const Catalogue &catalogue, const QJsonObject &parameters)
{
    const ShelfPlaylist *playlist = playlists->find(parameters.value(QStringLiteral("uri")).toString());
    if (!playlist)
        return QJsonValue::Null;
    QJsonArray tracks;
    for (const QString &uri : playlist->trackUris) {
        tracks << QJsonObject{{QStringLiteral("__model__"), QStringLiteral("Track")},
                              {QStringLiteral("uri"), uri},
                              {QStringLiteral("name"), nameOf(catalogue, uri)}};
    }
    return MopidyModels::playlist(playlist->uri, playlist->name, tracks);
}

// One under an existing name is emptied.
QJsonValue create(PlaylistShelf *playlists, const Catalogue &, const QJsonObject &parameters)
{
    const QString name = parameters.value(QStringLiteral("name")).toString();
    const QString uri = playlists->put(name, {});
    return MopidyModels::playlist(uri, playlists->find(uri)->name);
}

QJsonValue save(PlaylistShelf *playlists, const Catalogue &, const QJsonObject &parameters)
{
    const QJsonObject playlist = parameters.value(QStringLiteral("playlist")).toObject();
    const ShelfPlaylist *known = playlists->find(playlist.value(QStringLiteral("uri")).toString());
    if (!known)
        return QJsonValue::Null;
    QStringList uris;
    const QJsonArray tracks = playlist.value(QStringLiteral("tracks")).toArray();
    for (const QJsonValue &track : tracks)
        uris << track.toObject().value(QStringLiteral("uri")).toString();
    playlists->put(known->name, uris);
    return playlist;
}

QJsonValue remove(PlaylistShelf *playlists, const Catalogue &, const QJsonObject &parameters)
{
    return playlists->remove(parameters.value(QStringLiteral("uri")).toString());
}

struct Method
{
    QString name;
    QStringList parameters;
    Handler handler;
};

const QVector<Method> methods{
    {QStringLiteral("as_list"), {}, asList},
    {QStringLiteral("get_items"), {QStringLiteral("uri")}, getItems},
    {QStringLiteral("lookup"), {QStringLiteral("uri")}, lookup},
    {QStringLiteral("create"), {QStringLiteral("name"), QStringLiteral("uri_scheme")}, create},
    {QStringLiteral("save"), {QStringLiteral("playlist")}, save},
    {QStringLiteral("delete"), {QStringLiteral("uri")}, remove},
};

} // namespace

void RpcMethods::addPlaylists(RpcTable &table, PlaylistShelf *playlists, const Catalogue &catalogue)
{
    for (const Method &method : methods) {
        table.add(QStringLiteral("core.playlists.") + method.name, method.parameters,
                  [playlists, &catalogue, handler = method.handler](const QJsonObject &parameters) {
                      return RpcReply{handler(playlists, catalogue, parameters), {}};
                  });
    }
}
