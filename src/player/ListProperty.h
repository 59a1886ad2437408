// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQmlListProperty>

/// `list` of `owner` as QML sees it, with Qt's own append, count, at and clear. GUI thread; both outlive whatever shows
/// the list.
template<typename T>
QQmlListProperty<T> listProperty(QObject *owner, QList<T *> *list)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 15, 0)
    return QQmlListProperty<T>(owner, list);
#else
    return QQmlListProperty<T>(owner, *list);
#endif
}
