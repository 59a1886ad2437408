// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/LibraryNavController.h"

#include "navigation/QmlItem.h"
#include "player/HalvoraPlayer.h"
#include "player/Reclaimer.h"

LibraryNavController::LibraryNavController(QQuickItem *parent) : ListNavController(parent) { }

void LibraryNavController::setCurrentPlayer(HalvoraPlayer *currentPlayer)
{
    setPlayer(currentPlayer);
    Q_EMIT currentPlayerChanged();
}

void LibraryNavController::setMoreMenu(QQuickItem *moreMenu)
{
    m_moreMenu = moreMenu;
    Q_EMIT moreMenuChanged();
}

BrowseListView *LibraryNavController::setRootFrom(const QString &file)
{
    auto *root = newQmlItem<BrowseListView>(this, file);
    if (root)
        setRootView(root);
    return root;
}

void LibraryNavController::connectRequests(BrowseListView *view)
{
    connect(view, &BrowseListView::browse, this, &LibraryNavController::sendBrowse);
    connect(view, &BrowseListView::lookup, this, &LibraryNavController::sendLookup);
    connect(view, &BrowseListView::lookupImages, this, &LibraryNavController::sendLookupImages);
}

void LibraryNavController::sendBrowse(BrowseListView *v, QString uri)
{
    if (player())
        expectRows(player()->actionBrowse(uri, this, "browseResultReceived"), v);
}

void LibraryNavController::pushView(NavigationView *view)
{
    NavigationController::pushView(view);
    auto *list = qobject_cast<BrowseListView *>(view);
    if (!list)
        return;
    connectRequests(list);
    connect(list, &BrowseListView::playNow, this, &LibraryNavController::sendPlayNow);
    connect(list, &BrowseListView::openMenuWithItem, this, &LibraryNavController::openMenuWithItem);
}

void LibraryNavController::popLastView()
{
    NavigationController::popLastView();
}

void LibraryNavController::popToRootView()
{
    NavigationController::popToRootView();
}

// The menu slides as its property moves; a call of setY() would pass that by.
void LibraryNavController::openMenuWithItem(PlayerItem *item)
{
    if (!m_moreMenu || views().isEmpty())
        return;
    m_moreMenu->setProperty("selectedItem", QVariant::fromValue(item));
    m_moreMenu->setProperty("selectedPlayer", QVariant::fromValue(player()));
    m_moreMenu->setZ(views().constLast()->z() + 1);
    m_moreMenu->setProperty("y", 0);
}

void LibraryNavController::browsePlayAfterIndex(int responseId, QJsonValue v)
{
    addAtPosition(responseId, v, false);
}

struct LibraryNavController::MenuAction
{
    QLatin1String key;
    bool allToo; // whether the key with "_All" behind it means this as well
    void (LibraryNavController::*act)(const QStringList &uris);
};

QStringList LibraryNavController::urisFor(const QString &action, const PlayerItem *item) const
{
    if (!action.endsWith(QLatin1String("_All")))
        return {item->uri()};
    const BrowseListView *view = topList();
    return view ? view->urisFromUri(item->uri()) : QStringList();
}

void LibraryNavController::menuActionForItem(QString action, PlayerItem *item)
{
    static constexpr MenuAction actions[] = {
        {QLatin1String("It_PlayNow", 10), true, &LibraryNavController::playNow},
        {QLatin1String("It_PlayAfter", 12), false, &LibraryNavController::playAfter},
        {QLatin1String("It_AddToQueue", 13), true, &LibraryNavController::addToQueue},
    };
    if (!item)
        return;
    if (action == QLatin1String("It_ShowAlbum")) {
        showAlbum(item);
        return;
    }
    for (const MenuAction &known : actions) {
        if (known.allToo ? action.startsWith(known.key) : action == known.key) {
            (this->*known.act)(urisFor(action, item));
            return;
        }
    }
}

void LibraryNavController::playNow(const QStringList &uris)
{
    sendPlayNow(uris);
}

void LibraryNavController::playAfter(const QStringList &uris)
{
    if (player())
        expectPosition(player()->actionPlayIndex(this, "browsePlayAfterIndex"), uris);
}

void LibraryNavController::addToQueue(const QStringList &uris)
{
    if (player())
        player()->actionPlayAdd(uris, -1, false);
}

// A track whose details are still to come leads to the library's root.
void LibraryNavController::showAlbum(PlayerItem *item)
{
    const auto *song = qobject_cast<const Song *>(item);
    BrowseListView *view = topList();
    if (song && view)
        view->requirePushView(song->albumUri(), song->album());
}

void LibraryNavController::menuActionForItemPL(QString action, PlayerItem *item, QString uri)
{
    if (!item || !player())
        return;
    if (item->type() == QLatin1String("album")) {
        m_pendingPlaylistUri = uri;
        player()->actionBrowse(item->uri(), this, "albumBrowseReceived");
        return;
    }
    const BrowseListView *view = topList();
    const bool all = view && action.endsWith(QLatin1String("_All"));
    player()->actionEditPlaylistWithUris(uri,
                                         all ? view->itemsFromUri(item->uri()) : QList<PlayerItem *>{item});
}

void LibraryNavController::albumBrowseReceived(QJsonValue v)
{
    if (!v.isArray() || !player())
        return;
    const QList<PlayerItem *> tracks = LibraryRows::tracksOf(v);
    player()->actionEditPlaylistWithUris(m_pendingPlaylistUri, tracks);
    Reclaimer::dropAll(tracks);
}
