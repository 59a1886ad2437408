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
};

/**
 * The playlists of the simulated music server, in the order of their making. Owned by the
 * MusicServerSimulator, lives on its thread.
 */
class PlaylistShelf final : public QObject
{
    Q_OBJECT

public:
    explicit PlaylistShelf(QObject *parent = nullptr);

    const QVector<ShelfPlaylist> &playlists() const { return m_playlists; }

    /// Makes a playlist with a uri that follows from its name; an existing one of that name is replaced.
    /// Returns the uri.
    QString put(const QString &name, const QStringList &trackUris);

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
