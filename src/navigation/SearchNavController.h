// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "navigation/LibraryNavController.h"

/**
 * The stack that searches the music library and goes on from what it finds. "qrc:/Qml/SearchLibraryPopup.qml" is made
 * of it. On its first screen tracks play by their menus alone.
 * Made by the player screen, in the GUI thread, for as long as the search is on show.
 */
class SearchNavController : public LibraryNavController
{
    Q_OBJECT

public:
    using LibraryNavController::LibraryNavController;

    Q_INVOKABLE void initRootView() override;
    /// The results of a search; with two under way, those that arrive last stay. Anything but a list empties the screen.
    Q_INVOKABLE void searchResultReceived(QJsonValue v);

public Q_SLOTS:
    /// Searches everything, or the one scheme `filter`.
    void sendSearch(QString text, QString filter);
};
