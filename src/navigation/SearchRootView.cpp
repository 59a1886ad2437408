// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/SearchRootView.h"

#include "navigation/QmlItem.h"
#include "screens/DynamicTranslator.h"

namespace {

constexpr int shownRows = 5; // of each section

} // namespace

QQmlListProperty<PlayerItem> SearchRootView::allSortedItems()
{
    return firstItems(shownRows);
}

void SearchRootView::showSectionDetails(QString section)
{
    SectionItems *items = rowTypes().contains(section) ? sections().value(section) : nullptr;
    if (!items || items->items.size() <= shownRows)
        return;
    auto *view = newQmlItem<BrowseListView>(this, QStringLiteral("BrowseList.qml"));
    if (!view)
        return;
    view->setTitle(DynamicTranslator::translation(section));
    view->setRowTypes({section});
    view->setSections({{section, items}});
    Q_EMIT pushView(view);
}
