// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQuickItem>
#include <QStringList>
#include <QVector>

/// Finds items in a live scene by what can be seen of them from outside. None of them takes ownership.
namespace SceneSearch {

/// All items below `root` (itself included) that a person could see: visible, and with a size.
QVector<QQuickItem *> visibleItems(QQuickItem *root);

/// The addresses of the pictures that are loaded below `root`. A picture that only feeds an effect is not visible
/// itself, so it counts when its parent is.
QStringList loadedPictures(QQuickItem *root);

/// The first visible item of a type; a QML component counts as the type of its file and of its base class.
QQuickItem *ofType(QQuickItem *root, const char *type);

/// The first visible item whose property reads as that text or ends with it.
QQuickItem *withText(QQuickItem *root, const char *property, const QString &text);

} // namespace SceneSearch
