// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/NavigationView.h"

NavigationView::NavigationView(QQuickItem *parent) : QQuickItem(parent) { }

void NavigationView::setTitle(const QString &title)
{
    m_title = title;
    Q_EMIT titleChanged();
}
