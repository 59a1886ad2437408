// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQuickItem>
#include <QVector>

class QString;
class QVariant;

/// Finds items in a live scene by what can be seen of them from outside. None of them takes ownership.
namespace SceneSearch {

/// All items below `root` (itself included) that a person could see: visible, and with a size.
QVector<QQuickItem *> visibleItems(QQuickItem *root);

/// The first visible item of a type; a QML component counts as the type of its file and of its base class.
QQuickItem *ofType(QQuickItem *root, const char *type);

/// The first visible item whose property reads as that text; "source" compares the end of the address.
QQuickItem *withText(QQuickItem *root, const char *property, const QString &text);

} // namespace SceneSearch
