// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQmlListProperty>

/// The objects of a list property, read as QML reads them.
template<typename T>
QList<T *> listed(QQmlListProperty<T> list)
{
    QList<T *> objects;
    for (int i = 0; i < list.count(&list); ++i)
        objects << list.at(&list, i);
    return objects;
}
