// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/ListNavController.h"

#include "images/ImageRequest.h"
#include "player/HalvoraPlayer.h"

#include <limits>

ListNavController::ListNavController(QQuickItem *parent) : NavigationController(parent) { }

ListNavController::~ListNavController()
{
    qDeleteAll(views());
}

BrowseListView *ListNavController::topList() const
{
    return views().isEmpty() ? nullptr : qobject_cast<BrowseListView *>(views().constLast());
}

LibraryRows ListNavController::rowsOf(const QJsonValue &v) const
{
    return LibraryRows::fromDirectory(v);
}

std::optional<LibraryRows> ListNavController::rowsOf(const JsonText &result) const
{
    return LibraryRows::fromDirectory(result);
}

void ListNavController::expectRows(int responseId, BrowseListView *view)
{
    m_pendingBrowse.insert(responseId, view);
}

void ListNavController::expectPosition(int responseId, const QStringList &uris)
{
    m_pendingPlay.insert(responseId, uris);
}

// Numbers begin anew with each connection, and so one may be expected twice.
void ListNavController::expectDetails(int responseId, BrowseReference *reference)
{
    delete m_pendingReferences.take(responseId);
    reference->setParent(this);
    m_pendingReferences.insert(responseId, reference);
}

void ListNavController::sendLookup(BrowseReference *b)
{
    if (m_player)
        expectDetails(m_player->actionLookup(b->uris, this, "browseLookupReceived"), b);
}

void ListNavController::sendLookupImages(BrowseReference *b)
{
    if (m_player)
        expectDetails(m_player->actionLookupImages(b->uris, this, "browseImagesReceived"), b);
}

void ListNavController::sendPlayNow(QStringList uris)
{
    if (m_player)
        expectPosition(m_player->actionPlayIndex(this, "browsePlayIndex"), uris);
}

void ListNavController::requestImage(QString uri, QQuickItem *item)
{
    if (item)
        requestPicture(uri, item);
}

BrowseListView *ListNavController::onStack(QObject *view) const
{
    auto *list = qobject_cast<BrowseListView *>(view);
    return list && views().contains(list) ? list : nullptr;
}

void ListNavController::browseResultReceived(int responseId, QJsonValue v)
{
    BrowseListView *view = onStack(m_pendingBrowse.take(responseId));
    if (!view)
        return;
    const LibraryRows rows = rowsOf(v);
    view->setRowTypes(rows.types);
    view->setSections(rows.sections);
}

bool ListNavController::readLongReply(const char *handler, int responseId, const JsonText &result)
{
    return qstrcmp(handler, "browseResultReceived") == 0 && browseResultReceived(responseId, result);
}

bool ListNavController::browseResultReceived(int responseId, const JsonText &result)
{
    BrowseListView *view = onStack(m_pendingBrowse.value(responseId));
    const std::optional<LibraryRows> rows = view ? rowsOf(result) : std::nullopt;
    if (!rows)
        return false;
    m_pendingBrowse.remove(responseId);
    view->setRowTypes(rows->types);
    view->setSections(rows->sections);
    return true;
}

void ListNavController::applyDetails(int responseId, const QJsonValue &v, Update update)
{
    const QScopedPointer<BrowseReference> reference(m_pendingReferences.take(responseId));
    BrowseListView *view = reference ? onStack(reference->view) : nullptr;
    if (view)
        (view->*update)(reference->type, v);
}

void ListNavController::browseLookupReceived(int responseId, QJsonValue v)
{
    applyDetails(responseId, v, &BrowseListView::updateItems);
}

void ListNavController::browseImagesReceived(int responseId, QJsonValue v)
{
    applyDetails(responseId, v, &BrowseListView::updateImages);
}

void ListNavController::browsePlayIndex(int responseId, QJsonValue v)
{
    addAtPosition(responseId, v, true);
}

void ListNavController::addAtPosition(int responseId, const QJsonValue &v, bool play)
{
    const auto waiting = m_pendingPlay.find(responseId);
    if (waiting == m_pendingPlay.end())
        return;
    const QStringList uris = waiting.value();
    m_pendingPlay.erase(waiting);
    constexpr int atLargest = std::numeric_limits<int>::max(); // nothing comes behind it
    const int current = v.toInt(-1);
    if (m_player)
        m_player->actionPlayAdd(uris, current == -1 || current == atLargest ? -1 : current + 1, play);
}
