// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "navigation/NavigationController.h"

/**
 * The stack that walks the music library. QML knows it as BrowseNavController. So far the type alone, so that QML may name it: it does nothing yet.
 * Made by QML, in the GUI thread.
 */
class BrowseNavigationController : public NavigationController
{
    Q_OBJECT

public:
    using NavigationController::NavigationController;
};
