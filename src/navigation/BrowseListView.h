// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "navigation/NavigationView.h"

/**
 * A list of a library's rows. So far the type alone, so that QML may name it: it does nothing yet.
 * Made by QML, in the GUI thread.
 */
class BrowseListView : public NavigationView
{
    Q_OBJECT

public:
    using NavigationView::NavigationView;
};
