// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/NavigationBar.h"

NavigationBar::NavigationBar(QQuickItem *parent) : QQuickItem(parent) { }

void NavigationBar::setTitle(const QString &title)
{
    m_title = title;
    Q_EMIT titleChanged();
}
