// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQuickItem>
#include <QStringList>
#include <QVector>

/// Finds items in a live scene by what can be seen of them from outside. None of them takes ownership.
namespace SceneSearch {

/// All items below `root` (itself included) whose middle a person could see, unless something lies over it: visible,
/// with a size, inside the window and inside what clips them. In the order in which they are painted.
QVector<QQuickItem *> visibleItems(QQuickItem *root);

/// The addresses of the pictures that are loaded below `root`. A picture that only feeds an effect is not visible
/// itself, so it counts when its parent is.
QStringList loadedPictures(QQuickItem *root);

/// The topmost visible item of a type; a QML component counts as the type of its file and of its base class.
QQuickItem *ofType(QQuickItem *root, const char *type);

/// All of them in reading order: from the top, and from the left where they begin at the same height.
QVector<QQuickItem *> allOfType(QQuickItem *root, const char *type);

/// The topmost visible item whose property reads as that text or ends with it.
QQuickItem *withText(QQuickItem *root, const char *property, const QString &text);

} // namespace SceneSearch
