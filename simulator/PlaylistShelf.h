// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QStringList>
#include <QVector>

/// A playlist of the simulated music server.
struct ShelfPlaylist
{
    QString uri;
    QString name;
    QStringList trackUris;
    qint64 lastModified = 0; ///< milliseconds since 1970
};

/**
 * The playlists of the simulated music server, in the order of their making. Owned by the MusicServerSimulator,
 * lives on its thread.
 */
class PlaylistShelf final : public QObject
{
    Q_OBJECT

public:
    explicit PlaylistShelf(QObject *parent = nullptr);

    const QVector<ShelfPlaylist> &playlists() const { return m_playlists; }

    /// The playlist of that uri, null for an unknown one. Valid until the shelf changes.
    const ShelfPlaylist *find(const QString &uri) const;

    /// Makes a playlist with a uri that follows from its name; an existing one of that name is replaced. Returns
    /// the uri. A "/" in the name becomes "|", as the server's playlists are files.
    QString put(const QString &name, const QStringList &trackUris);

    /// The same for the playlist of a uri, which need not be there yet: it goes by `name` from then on.
    QString save(const QString &uri, const QString &name, const QStringList &trackUris);

    /// Gives a playlist another name, and with it another uri, or takes it away. False for an unknown uri.
    bool rename(const QString &uri, const QString &newName);
    bool remove(const QString &uri);

Q_SIGNALS:
    void playlistChanged(const ShelfPlaylist &playlist);
    void playlistDeleted(const QString &uri);

private:
    int position(const QString &uri) const;

    QVector<ShelfPlaylist> m_playlists;
};
