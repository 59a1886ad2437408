// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/SceneItems.h"

#include <algorithm>

namespace {

bool comesBefore(const QQuickItem *a, const QQuickItem *b)
{
    const QPointF left = a->mapToScene({});
    const QPointF right = b->mapToScene({});
    return left.y() < right.y() || (left.y() == right.y() && left.x() < right.x());
}

void collect(QQuickItem *item, QList<QQuickItem *> *found)
{
    if (!item->isVisible())
        return;
    found->append(item);
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children)
        collect(child, found);
}

bool strays(const QQuickItem *label, const QQuickItem *root)
{
    const QSizeF content(label->property("contentWidth").toReal(), label->property("contentHeight").toReal());
    const bool fits = content.width() <= label->width() && content.height() <= label->height();
    const QRectF box = label->mapRectToItem(root, {{}, label->size()});
    const bool plain = label->property("textFormat").toInt() == int(Qt::PlainText);
    return !plain || !(fits || label->clip()) || !QRectF({}, root->size()).contains(box);
}

} // namespace

QList<QQuickItem *> SceneItems::shown(QQuickItem *root)
{
    QList<QQuickItem *> items;
    if (root)
        collect(root, &items);
    std::stable_sort(items.begin(), items.end(), comesBefore);
    return items;
}

QList<QQuickItem *> SceneItems::labels(QQuickItem *root)
{
    QList<QQuickItem *> labels;
    const QList<QQuickItem *> items = shown(root);
    for (QQuickItem *item : items) {
        const bool inScene = item->mapToItem(root, {}).y() < root->height();
        if (inScene && item->inherits("QQuickText") && !item->property("text").toString().isEmpty())
            labels.append(item);
    }
    return labels;
}

QStringList SceneItems::texts(QQuickItem *root)
{
    QStringList texts;
    const QList<QQuickItem *> items = labels(root);
    for (const QQuickItem *item : items)
        texts.append(item->property("text").toString());
    return texts;
}

QQuickItem *SceneItems::label(QQuickItem *root, const QString &text)
{
    const QList<QQuickItem *> items = labels(root);
    const auto found = std::find_if(items.begin(), items.end(), [&](const QQuickItem *item) {
        return item->property("text").toString() == text;
    });
    return found == items.end() ? nullptr : *found;
}

QStringList SceneItems::strays(QQuickItem *root)
{
    QStringList texts;
    const QList<QQuickItem *> items = labels(root);
    for (const QQuickItem *item : items) {
        if (::strays(item, root))
            texts.append(item->property("text").toString());
    }
    return texts;
}

QPoint SceneItems::centreOf(const QQuickItem *item)
{
    return item->mapToScene({item->width() / 2, item->height() / 2}).toPoint();
}
