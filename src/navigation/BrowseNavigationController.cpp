// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/BrowseNavigationController.h"

void BrowseNavigationController::initRootView()
{
    BrowseListView *root = setRootFrom(QStringLiteral("BrowseList.qml"));
    if (root)
        connectRequests(root);
    sendBrowse(root, QString());
}
