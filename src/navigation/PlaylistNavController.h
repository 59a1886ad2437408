// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "model/Halvora.h"
#include "navigation/ListNavController.h"

/**
 * The stack of a player's playlists: the list, the tracks of one, and the device's preset slots to tie one to.
 * "qrc:/Qml/Playlists/PlaylistsNavPopup.qml" is made of it; its QML function showMoreMenu(playlist) opens the menu.
 *
 * One lives in the player screen, in the GUI thread, and gets device and player, which it does not own, while it is on
 * show.
 */
class PlaylistNavController : public ListNavController
{
    Q_OBJECT
    Q_PROPERTY(Halvora *currHalvora READ currHalvora WRITE setCurrHalvora NOTIFY currHalvoraChanged)
    Q_PROPERTY(HalvoraPlayer *currPlayer READ currPlayer WRITE setCurrPlayer NOTIFY currPlayerChanged)

public:
    using ListNavController::ListNavController;

    /// The device that renames, deletes and ties playlists; null by default.
    Halvora *currHalvora() const { return m_currHalvora; }
    void setCurrHalvora(Halvora *currHalvora);
    /// The player that lists, plays and makes playlists; null by default. currPlayerChanged() also tells that its
    /// playlists have changed, once for each time that it has been set: connections are never undone.
    HalvoraPlayer *currPlayer() const { return player(); }
    void setCurrPlayer(HalvoraPlayer *currPlayer);

    /// Makes the bar, with the button "Add" for a new playlist.
    Q_INVOKABLE void initNavigationBar();
    Q_INVOKABLE void initRootView() override;
    /// Pictures of playlists. What comes for a key that is no playlist's goes to the first one.
    Q_INVOKABLE void playlistImagesReceived(QJsonValue v);
    /// Does what the menu's key says with a playlist; unknown keys do nothing.
    Q_INVOKABLE void menuActionForItem(QString action, PlayerItem *item);

Q_SIGNALS:
    void currHalvoraChanged();
    void currPlayerChanged();

public Q_SLOTS:
    void popLastView();
    void popToRootView();
    /// Opens the dialog for a new playlist.
    void secRightButtonClicked();
    /// Shows the tracks of a playlist.
    void pushBrowseList(QString uri, QString title);
    /// Takes a dialog off the screen and frees it. Null does nothing.
    void closeDialog(QQuickItem *dialog);
    /// Names are not checked.
    void createPlaylist(QString name);
    void renamePlaylist(QString uri, QString name);
    void deletePlaylist(QString uri);
    /// Withdraws `item` from a picture that is being fetched.
    void discardImage(QString uri, QQuickItem *item);
    /// Asks for the missing pictures of the playlists in rows `startIndex` to `endIndex` and of ten more on either side.
    void requireLookup(int startIndex, int endIndex);

protected:
    LibraryRows rowsOf(const QJsonValue &v) const override;
    std::optional<LibraryRows> rowsOf(const JsonText &result) const override;

private:
    struct MenuAction;

    void openPlaylist(const QString &uri);
    void addPlaylist(const QString &uri);
    void openRenameDialog(const QString &uri);
    void openDeleteDialog(const QString &uri);
    void pushPresetSlots(const QString &uri);
    QQuickItem *dialogParent() const;
    void showAdd(bool show);

    QPointer<Halvora> m_currHalvora;
};
