// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "support/ClientWindow.h"
#include "support/Requests.h"

/**
 * A person at a client whose player screen stands, who walks through library, search and playlists. The queue holds
 * two tracks of other albums, the first of which plays. Calls that wait return false when it never came.
 */
class Listener
{
public:
    static const QPoint libraryButton;
    static const QPoint searchButton;
    static const QPoint playlistsButton;
    static const QPoint rightButton; ///< of the bar: "Close"
    static const QPoint backButton;

    explicit Listener(const Catalogue &catalogue = Catalogue());

    /// Shows the window and its player, and forgets what that has sent.
    bool start();

    CatalogueTrack track(int position) const { return client.server.catalogue().track(position); }
    QStringList uris(int from, int to) const; ///< of tracks
    /// What a row says of a track once its details are there.
    QString details(int position) const;

    /// The requests of the step that was just made, all of them and no more. Forgets them.
    bool sent(const QStringList &expected);
    bool shows(const QString &text) const;

    bool openAlbums(int position); ///< the list of albums, until that of the track is on show
    bool openAlbum(int position);  ///< on to that album, with its details; forgets what that has sent
    bool openMenuOf(const QString &row, const QString &menu = QStringLiteral("MoreMenu"));
    /// Whether a panel has slid in.
    bool isStill(const QString &type);
    bool closeFilters();

    /// Puts the playlists "Morning" and "Evening" and two preset slots up, and opens the list.
    bool openPlaylists();
    QString playlistUri(int which) { return client.server.playlists()->playlists().at(which).uri; }
    bool openPlaylistMenu()
    {
        return openMenuOf(QStringLiteral("Morning"), QStringLiteral("PlaylistMoreMenu"));
    }

    bool openSearch();
    void searchFor(const QString &text); ///< in the open search
    /// Opens the search and sends `text`.
    bool search(const QString &text);
    /// One artist, one album and `tracks` tracks of the library, as a backend finds them.
    QJsonArray results(int tracks) const;

    ClientWindow client;
};

/// The same after start(); where that fails, so does the test.
struct PlayingListener final : Listener
{
    explicit PlayingListener(const Catalogue &catalogue = Catalogue());
};
