// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "navigation/BrowseListView.h"

/**
 * The first screen of the search: a list that shows the first five rows of each section, and all of one on request.
 * "qrc:/Qml/SearchRootView.qml" gives it its looks. Lifetime and thread as for BrowseListView.
 */
class SearchRootView : public BrowseListView
{
    Q_OBJECT

public:
    using BrowseListView::BrowseListView;

    QQmlListProperty<PlayerItem> allSortedItems() override;

    /// Has a list of all rows of that type pushed, unless all of them are on show here. The rows are the same objects,
    /// and its first requests for details, which come before the push, reach nobody.
    Q_INVOKABLE void showSectionDetails(QString section);

Q_SIGNALS:
    void search(QString text, QString filter);
};
