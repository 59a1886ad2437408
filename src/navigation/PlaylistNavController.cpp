// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/PlaylistNavController.h"

#include "images/ImageDownloader.h"
#include "navigation/Dialog.h"
#include "navigation/QmlItem.h"
#include "navigation/RowReach.h"
#include "player/PictureTables.h"

#include <QJsonObject>

void PlaylistNavController::setCurrHalvora(Halvora *currHalvora)
{
    m_currHalvora = currHalvora;
    Q_EMIT currHalvoraChanged();
    if (rootView())
        rootView()->setProperty("currHalvora", QVariant::fromValue(currHalvora));
}

void PlaylistNavController::setCurrPlayer(HalvoraPlayer *currPlayer)
{
    setPlayer(currPlayer);
    Q_EMIT currPlayerChanged();
    if (currPlayer)
        connect(currPlayer, &HalvoraPlayer::playlistsChanged, this,
                &PlaylistNavController::currPlayerChanged);
}

void PlaylistNavController::initNavigationBar()
{
    ListNavController::initNavigationBar();
    if (!navigationBar())
        return;
    navigationBar()->setProperty("secRightText", QStringLiteral("Add"));
    showAdd(true);
    connect(navigationBar(), SIGNAL(secondRight()), this, SLOT(secRightButtonClicked()));
}

void PlaylistNavController::initRootView()
{
    auto *root = newQmlItem<NavigationView>(this, QStringLiteral("Playlists/PlaylistRootView.qml"));
    if (!root)
        return;
    setRootView(root);
    connect(root, SIGNAL(openMenuWithItem(QVariant)), this, SLOT(showMoreMenu(QVariant)));
    connect(root, SIGNAL(requireBrowseForUri(QString, QString)), this,
            SLOT(pushBrowseList(QString, QString)));
    connect(root, SIGNAL(requestImage(QString, QQuickItem *)), this,
            SLOT(requestImage(QString, QQuickItem *)));
    connect(root, SIGNAL(discardImage(QString, QQuickItem *)), this,
            SLOT(discardImage(QString, QQuickItem *)));
    connect(root, SIGNAL(requireLookup(int, int)), this, SLOT(requireLookup(int, int)));
}

// "Add" belongs to the list of playlists alone.
void PlaylistNavController::showAdd(bool show)
{
    if (navigationBar())
        navigationBar()->setProperty("secRightVisible", show);
}

void PlaylistNavController::popLastView()
{
    NavigationController::popLastView();
    if (views().size() == 1)
        showAdd(true);
}

void PlaylistNavController::popToRootView()
{
    showAdd(true);
    NavigationController::popToRootView();
}

void PlaylistNavController::pushBrowseList(QString uri, QString title)
{
    auto *view = newQmlItem<BrowseListView>(this, QStringLiteral("BrowseList.qml"));
    if (!view)
        return;
    connect(view, &BrowseListView::lookup, this, &PlaylistNavController::sendLookup);
    connect(view, &BrowseListView::lookupImages, this, &PlaylistNavController::sendLookupImages);
    connect(view, &BrowseListView::playNow, this, &PlaylistNavController::sendPlayNow);
    view->setProperty("insidePlaylistView", true);
    view->setTitle(title);
    NavigationController::pushView(view);
    showAdd(false);
    if (player())
        expectRows(player()->actionBrowsePlaylist(uri, this, "browseResultReceived"), view);
}

LibraryRows PlaylistNavController::rowsOf(const QJsonValue &v) const
{
    return LibraryRows::fromPlaylist(v);
}

std::optional<LibraryRows> PlaylistNavController::rowsOf(const JsonText &result) const
{
    return LibraryRows::fromPlaylist(result);
}

void PlaylistNavController::requireLookup(int startIndex, int endIndex)
{
    if (!player())
        return;
    const QList<PlayerItem *> &playlists = player()->playlistItems();
    const QStringList uris = RowReach::withoutPictures(playlists, qMax(startIndex - RowReach::rows, 0),
                                                       qMin(endIndex + RowReach::rows, playlists.size()));
    if (!uris.isEmpty())
        player()->actionLookupImages(uris, this, "playlistImagesReceived");
}

void PlaylistNavController::playlistImagesReceived(QJsonValue v)
{
    if (!v.isObject())
        return;
    const QJsonObject picturesByUri = v.toObject();
    PictureTables tables;
    for (auto it = picturesByUri.begin(); it != picturesByUri.end(); ++it) {
        PlayerItem *playlist = player()
            ? player()->playlistItems().value(player()->playlistPosition(it.key()))
            : nullptr;
        const QJsonArray pictures = it.value().toArray();
        if (playlist && !pictures.isEmpty())
            tables.set(playlist, pictures);
    }
    if (rootView())
        QMetaObject::invokeMethod(rootView(), "refreshItems");
}

void PlaylistNavController::discardImage(QString uri, QQuickItem *item)
{
    ImageDownloader::instance()->discardImage(uri, item);
}

struct PlaylistNavController::MenuAction
{
    QLatin1String key;
    void (PlaylistNavController::*act)(const QString &uri);
};

void PlaylistNavController::menuActionForItem(QString action, PlayerItem *item)
{
    static constexpr MenuAction actions[] = {
        {QLatin1String("It_PlayNow", 10), &PlaylistNavController::openPlaylist},
        {QLatin1String("It_AddToQueue", 13), &PlaylistNavController::addPlaylist},
        {QLatin1String("It_Rename", 9), &PlaylistNavController::openRenameDialog},
        {QLatin1String("It_Delete", 9), &PlaylistNavController::openDeleteDialog},
        {QLatin1String("It_Associate", 12), &PlaylistNavController::pushPresetSlots},
    };
    for (const MenuAction &known : actions) {
        if (item && action == known.key)
            (this->*known.act)(item->uri());
    }
}

void PlaylistNavController::openPlaylist(const QString &uri)
{
    if (player())
        player()->actionOpenPlaylistWithUri(uri);
}

void PlaylistNavController::addPlaylist(const QString &uri)
{
    if (player())
        player()->actionAddPlaylistWithUri(uri);
}

// The slots take player and device in this order: its rows read the player as soon as they have the device.
void PlaylistNavController::pushPresetSlots(const QString &uri)
{
    auto *view = newQmlItem<NavigationView>(this, QStringLiteral("Playlists/PlaylistEntriesView.qml"));
    if (!view)
        return;
    NavigationController::pushView(view);
    showAdd(false);
    view->setProperty("plRef", uri);
    view->setProperty("currPlayer", QVariant::fromValue(player()));
    view->setProperty("currHalvora", QVariant::fromValue(currHalvora()));
    view->setProperty("enableSelection", true);
}
