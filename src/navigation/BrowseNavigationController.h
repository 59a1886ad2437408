// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "navigation/LibraryNavController.h"

/**
 * The stack that walks the music library, from its root. QML knows it as BrowseNavController, and
 * "qrc:/Qml/MusicLibraryPopup.qml" is made of it. On its first screen tracks do not play and menus do not open.
 * Made by the player screen, in the GUI thread, for as long as the library is on show.
 */
class BrowseNavigationController : public LibraryNavController
{
    Q_OBJECT

public:
    using LibraryNavController::LibraryNavController;

    Q_INVOKABLE void initRootView() override;
};
