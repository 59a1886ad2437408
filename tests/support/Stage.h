// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "screens/Theme.h"

#include <QQuickItem>
#include <QQuickView>

/**
 * A window of 450 by 640 whose scene is one component under test, in a parent that notes what it is told. A fetched
 * picture is a green square at "http://host/a.png" and a magenta one elsewhere.
 */
class Stage final
{
public:
    /// The test fails if the window does not come to show it.
    /// `tested` is QML text; its handlers may call tell(text). Without `smallScreen` QML has no property of that name.
    explicit Stage(const QString &tested, const QVariant &smallScreen = {});

    Theme theme; ///< suffix "_0"
    QQuickView view;

    QQuickItem *tested() const;
    /// As in SceneItems.
    QQuickItem *label(const QString &text) const;
    QStringList texts() const;

    void click(const QPoint &place);
    /// On the label with that text; the test fails if it is not on show.
    void clickOn(const QString &text);
    /// A gesture 20 below the upper edge: pressed at the first place, released at the last.
    void drag(const QList<int> &places);

    /// What the parent was told since the last call; "below" is a click that went through to it.
    QStringList told();
};
