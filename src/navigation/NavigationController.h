// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQuickItem>

/**
 * A stack of screens with a title bar. So far the type alone, so that QML may name it: it does nothing yet.
 * Made by QML, in the GUI thread.
 */
class NavigationController : public QQuickItem
{
    Q_OBJECT

public:
    using QQuickItem::QQuickItem;
};
