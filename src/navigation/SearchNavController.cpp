// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/SearchNavController.h"

#include "navigation/SearchRootView.h"
#include "player/HalvoraPlayer.h"

void SearchNavController::initRootView()
{
    auto *root = qobject_cast<SearchRootView *>(setRootFrom(QStringLiteral("SearchRootView.qml")));
    if (!root)
        return;
    if (player())
        root->setProperty("filters", player()->filters());
    connect(root, &SearchRootView::search, this, &SearchNavController::sendSearch);
    connectRequests(root);
    connect(root, &BrowseListView::openMenuWithItem, this, &LibraryNavController::openMenuWithItem);
}

void SearchNavController::sendSearch(QString text, QString filter)
{
    if (player())
        player()->actionSearch(text, filter, this, "searchResultReceived");
}

void SearchNavController::searchResultReceived(QJsonValue v)
{
    auto *root = qobject_cast<BrowseListView *>(rootView());
    if (!root)
        return;
    const LibraryRows rows = LibraryRows::fromSearch(v);
    root->setRowTypes(rows.types);
    root->setSections(rows.sections);
}
