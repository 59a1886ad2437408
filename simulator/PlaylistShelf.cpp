// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/PlaylistShelf.h"

#include <QDateTime>
#include <QUrl>

#include <algorithm>

namespace {

QString uriOf(const QString &name)
{
    return QStringLiteral("m3u:") + QString::fromLatin1(QUrl::toPercentEncoding(name))
        + QStringLiteral(".m3u8");
}

} // namespace

PlaylistShelf::PlaylistShelf(QObject *parent) : QObject(parent) { }

const ShelfPlaylist *PlaylistShelf::find(const QString &uri) const
{
    const int at = position(uri);
    return at < 0 ? nullptr : &m_playlists.at(at);
}

QString PlaylistShelf::put(const QString &name, const QStringList &trackUris)
{
    const QString fileName = QString(name).replace(QLatin1Char('/'), QLatin1Char('|'));
    const ShelfPlaylist playlist{uriOf(fileName), fileName, trackUris, QDateTime::currentMSecsSinceEpoch()};
    const int at = position(playlist.uri);
    if (at < 0)
        m_playlists << playlist;
    else
        m_playlists[at] = playlist;
    Q_EMIT playlistChanged(playlist);
    return playlist.uri;
}

// The server tells of the new one alone.
QString PlaylistShelf::save(const QString &uri, const QString &name, const QStringList &trackUris)
{
    const int before = position(uri);
    const QString saved = put(name, trackUris);
    if (before >= 0 && saved != uri)
        m_playlists.removeAt(before);
    return saved;
}

bool PlaylistShelf::rename(const QString &uri, const QString &newName)
{
    const int at = position(uri);
    if (at < 0)
        return false;
    m_playlists[at].name = newName;
    m_playlists[at].uri = uriOf(newName);
    Q_EMIT playlistDeleted(uri);
    Q_EMIT playlistChanged(m_playlists.at(at));
    return true;
}

bool PlaylistShelf::remove(const QString &uri)
{
    const int at = position(uri);
    if (at < 0)
        return false;
    m_playlists.removeAt(at);
    Q_EMIT playlistDeleted(uri);
    return true;
}

int PlaylistShelf::position(const QString &uri) const
{
    const auto found = std::find_if(m_playlists.cbegin(), m_playlists.cend(),
                                    [&uri](const ShelfPlaylist &playlist) { return playlist.uri == uri; });
    return found == m_playlists.cend() ? -1 : int(found - m_playlists.cbegin());
}
