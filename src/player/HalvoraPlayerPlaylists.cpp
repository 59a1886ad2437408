// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/HalvoraPlayer.h"

#include "player/Reclaimer.h"

#include <QJsonArray>

// The server's playlists: their mirror, playing, making and extending them. Renaming and deleting are the
// device's business.

namespace {

QStringList urisOf(const QJsonArray &references)
{
    QStringList uris;
    for (const QJsonValue &reference : references) {
        if (reference.isObject())
            uris.append(reference.toObject().value(QLatin1String("uri")).toString());
    }
    return uris;
}

QJsonObject modelOf(const PlayerItem *item)
{
    const bool track = item->type() == QLatin1String("track");
    return {{QStringLiteral("__model__"), track ? QStringLiteral("Track") : QStringLiteral("Album")},
            {QStringLiteral("uri"), item->uri()},
            {QStringLiteral("name"), item->name()}};
}

QJsonObject uriParameter(const QString &uri)
{
    return {{QStringLiteral("uri"), uri}};
}

} // namespace

void HalvoraPlayer::updatePlaylists(QJsonValue v)
{
    const QList<PlayerItem *> former = m_playlists;
    m_playlists.clear();
    m_playlistIndex.clear();
    const QJsonArray references = v.toArray();
    for (const QJsonValue &value : references) {
        if (!value.isObject())
            continue;
        const QJsonObject reference = value.toObject();
        auto *item = new PlayerItem;
        item->setUri(reference.value(QLatin1String("uri")).toString());
        item->setName(reference.value(QLatin1String("name")).toString());
        m_playlistIndex.insert(item->uri(), m_playlists.size());
        m_playlists.append(item);
    }
    Q_EMIT playlistsChanged();
    Reclaimer::dropAll(former);
}

void HalvoraPlayer::actionRefreshPlaylists()
{
    post(QStringLiteral("core.playlists.as_list"), this, "updatePlaylists");
}

QString HalvoraPlayer::getPlaylistName(QString uri)
{
    const auto found = m_playlistIndex.constFind(uri);
    return found == m_playlistIndex.constEnd() ? QString() : m_playlists.at(found.value())->name();
}

int HalvoraPlayer::actionBrowsePlaylist(QString uri, QObject *rec, const char *hdl)
{
    return post(QStringLiteral("core.playlists.get_items"), uriParameter(uri), rec, hdl);
}

void HalvoraPlayer::actionOpenPlaylistWithUri(QString uri)
{
    actionBrowsePlaylist(uri, this, "actionPlayList");
}

void HalvoraPlayer::actionAddPlaylistWithUri(QString uri)
{
    actionBrowsePlaylist(uri, this, "actionAddList");
}

void HalvoraPlayer::actionPlayList(QJsonValue v)
{
    if (v.isArray())
        actionResetQueueWithUris(urisOf(v.toArray()));
}

void HalvoraPlayer::actionAddList(QJsonValue v)
{
    if (v.isArray())
        actionPlayAdd(urisOf(v.toArray()), -1, false);
}

void HalvoraPlayer::actionCreatePlaylist(QString name, bool fromQueue)
{
    const QJsonObject params{{QStringLiteral("name"), name},
                             {QStringLiteral("uri_scheme"), QStringLiteral("m3u")}};
    if (fromQueue)
        post(QStringLiteral("core.playlists.create"), params, this, "updatePlaylistJsonFromQueue");
    else
        post(QStringLiteral("core.playlists.create"), params);
}

void HalvoraPlayer::updatePlaylistJsonFromQueue(QJsonValue v)
{
    m_pendingPlaylistJson = v;
    post(QStringLiteral("core.tracklist.get_tracks"), this, "updatePlaylistTracks");
}

void HalvoraPlayer::updatePlaylistTracks(QJsonValue v)
{
    if (!v.isArray() || m_pendingPlaylistJson.isNull())
        return;
    savePlaylist(m_pendingPlaylistJson.toObject(), v.toArray());
    m_pendingPlaylistJson = QJsonValue();
}

void HalvoraPlayer::actionEditPlaylistWithUris(QString playlist, QList<PlayerItem *> songs)
{
    m_pendingPlaylistItems = QJsonArray();
    for (const PlayerItem *song : qAsConst(songs))
        m_pendingPlaylistItems.append(modelOf(song));
    post(QStringLiteral("core.playlists.lookup"), uriParameter(playlist), this, "updatePlaylistJson");
}

void HalvoraPlayer::updatePlaylistJson(QJsonValue v)
{
    if (!v.isObject())
        return;
    const QJsonObject playlist = v.toObject();
    QJsonArray tracks = playlist.value(QLatin1String("tracks")).toArray();
    for (const QJsonValue &item : qAsConst(m_pendingPlaylistItems))
        tracks.append(item);
    savePlaylist(playlist, tracks);
}

void HalvoraPlayer::savePlaylist(QJsonObject playlist, const QJsonArray &tracks)
{
    playlist.insert(QStringLiteral("tracks"), tracks);
    post(QStringLiteral("core.playlists.save"), {{QStringLiteral("playlist"), playlist}});
}
