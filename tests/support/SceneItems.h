// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQuickItem>

/**
 * What can be seen of a scene below one of its items, from top to bottom and then from left to right. `root` may be
 * null, and then there is nothing.
 */
namespace SceneItems {

/// All visible items, `root` included.
QList<QQuickItem *> shown(QQuickItem *root);
/// The labels that are not empty and do not lie below the lower end of `root`, where pop-ups wait.
QList<QQuickItem *> labels(QQuickItem *root);
/// Their texts.
QStringList texts(QQuickItem *root);
/// The first of them with that text; null if there is none.
QQuickItem *label(QQuickItem *root, const QString &text);
/// The texts of those that are no plain text, stand outside `root`, or paint outside their own box.
QStringList strays(QQuickItem *root);
/// Where a click on the middle of `item` goes, in the window.
QPoint centreOf(const QQuickItem *item);

} // namespace SceneItems
