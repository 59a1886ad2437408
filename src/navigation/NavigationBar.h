// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQuickItem>

/**
 * The title bar of a navigation stack. So far the type alone, so that QML may name it: it does nothing yet.
 * Made by QML, in the GUI thread.
 */
class NavigationBar : public QQuickItem
{
    Q_OBJECT

public:
    using QQuickItem::QQuickItem;
};
