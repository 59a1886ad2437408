// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>

/// Makes the root object of a QML file of the resources in the engine and the context of `maker`; the caller owns it.
/// Null when the file cannot be read or its root is no `Item`: nothing is reported. GUI thread.
template<typename Item>
Item *newQmlItem(const QObject *maker, const QString &file)
{
    QQmlComponent component(qmlEngine(maker), QUrl(QLatin1String("qrc:/Qml/") + file));
    if (!component.isReady())
        return nullptr;
    QObject *made = component.create(qmlContext(maker));
    auto *item = qobject_cast<Item *>(made);
    if (!item)
        delete made;
    return item;
}
