// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "navigation/BrowseListView.h"

/**
 * The first screen of the search. So far the type alone, so that QML may name it: it does nothing yet.
 * Made by QML, in the GUI thread.
 */
class SearchRootView : public BrowseListView
{
    Q_OBJECT

public:
    using BrowseListView::BrowseListView;
};
