// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "navigation/ListNavController.h"
#include "player/HalvoraPlayer.h"

/**
 * What walking and searching a music library have in common: lists that lead to lists, and a menu for their tracks and
 * albums. A base class; its two kinds differ in their first screen. GUI thread; player and menu are not owned.
 */
class LibraryNavController : public ListNavController
{
    Q_OBJECT
    Q_PROPERTY(
        HalvoraPlayer *currentPlayer READ currentPlayer WRITE setCurrentPlayer NOTIFY currentPlayerChanged)
    Q_PROPERTY(QQuickItem *moreMenu READ moreMenu WRITE setMoreMenu NOTIFY moreMenuChanged)

public:
    explicit LibraryNavController(QQuickItem *parent = nullptr);

    /// The player whose library this is; null by default, which sends nothing. Set before initRootView().
    HalvoraPlayer *currentPlayer() const { return player(); }
    void setCurrentPlayer(HalvoraPlayer *currentPlayer);
    /// The menu of the pop-up, with the properties "selectedItem" and "selectedPlayer"; null by default.
    QQuickItem *moreMenu() const { return m_moreMenu; }
    void setMoreMenu(QQuickItem *moreMenu);

    /// Position of the current track, behind which what is to come next goes.
    Q_INVOKABLE void browsePlayAfterIndex(int responseId, QJsonValue v);
    /// The tracks of an album that is to be added to a playlist. Anything but a list adds nothing.
    Q_INVOKABLE void albumBrowseReceived(QJsonValue v);
    /// Does what the menu's key says ("It_PlayNow", ...) with a row of the list on top; keys that end in "_All" take
    /// the rest of its section along. Unknown keys do nothing.
    Q_INVOKABLE void menuActionForItem(QString action, PlayerItem *item);
    /// Adds a row, or with "_All" the rest of its section too, to the playlist `uri`.
    Q_INVOKABLE void menuActionForItemPL(QString action, PlayerItem *item, QString uri);

Q_SIGNALS:
    void currentPlayerChanged();
    void moreMenuChanged();

public Q_SLOTS:
    /// Slides the menu in, for `item`.
    void openMenuWithItem(PlayerItem *item);
    void pushView(NavigationView *view);
    void popLastView();
    void popToRootView();
    /// Asks for the entries of `uri`, of the library's root for "", to be shown by `v`.
    void sendBrowse(BrowseListView *v, QString uri);

protected:
    /// Makes the root of that QML file and puts it on the stack; null when there is none.
    BrowseListView *setRootFrom(const QString &file);
    /// Has the view's requests for rows and their details answered.
    void connectRequests(BrowseListView *view);

private:
    struct MenuAction;

    QStringList urisFor(const QString &action, const PlayerItem *item) const;
    void playNow(const QStringList &uris);
    void playAfter(const QStringList &uris);
    void addToQueue(const QStringList &uris);
    void showAlbum(PlayerItem *item);

    QQuickItem *m_moreMenu = nullptr;
    QString m_pendingPlaylistUri; // where the tracks of the album that is being read go
};
