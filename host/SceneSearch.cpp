// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "SceneSearch.h"

#include <QQuickWindow>
#include <QVariant>

#include <algorithm>

namespace {

// `seen` is what clips the item, in the scene.
void collect(QQuickItem *item, QRectF seen, QVector<QQuickItem *> *found)
{
    if (!item->isVisible())
        return;
    const QRectF area = item->mapRectToScene({0, 0, item->width(), item->height()});
    if (item->clip())
        seen &= area;
    if (!area.isEmpty() && seen.contains(area.center()))
        found->append(item);
    QList<QQuickItem *> children = item->childItems();
    std::stable_sort(children.begin(), children.end(),
                     [](const QQuickItem *one, const QQuickItem *other) { return one->z() < other->z(); });
    for (QQuickItem *child : qAsConst(children))
        collect(child, seen, found);
}

bool isOfType(const QQuickItem *item, const QByteArray &type)
{
    for (const QMetaObject *meta = item->metaObject(); meta; meta = meta->superClass()) {
        const QByteArray name = meta->className();
        if (name == type || name.startsWith(type + "_QML"))
            return true;
    }
    return false;
}

template<typename Predicate>
QQuickItem *topmost(QQuickItem *root, Predicate fits)
{
    const auto items = SceneSearch::visibleItems(root);
    const auto found = std::find_if(items.rbegin(), items.rend(), fits);
    return found == items.rend() ? nullptr : *found;
}

bool isReadBefore(const QQuickItem *one, const QQuickItem *other)
{
    const QPointF first = one->mapToScene({});
    const QPointF second = other->mapToScene({});
    return first.y() == second.y() ? first.x() < second.x() : first.y() < second.y();
}

} // namespace

QVector<QQuickItem *> SceneSearch::visibleItems(QQuickItem *root)
{
    QVector<QQuickItem *> found;
    if (root && root->window())
        collect(root, {{}, QSizeF(root->window()->size())}, &found);
    return found;
}

QStringList SceneSearch::loadedPictures(QQuickItem *root)
{
    QStringList found;
    const auto items = visibleItems(root);
    for (const QQuickItem *item : items) {
        const auto children = item->childItems();
        for (const QQuickItem *child : children) {
            if (child->property("progress").toReal() >= 1) // an Image, and nothing left to load
                found += child->property("source").toString();
        }
    }
    return found;
}

QQuickItem *SceneSearch::ofType(QQuickItem *root, const char *type)
{
    return topmost(root, [type](const QQuickItem *item) { return isOfType(item, type); });
}

QVector<QQuickItem *> SceneSearch::allOfType(QQuickItem *root, const char *type)
{
    QVector<QQuickItem *> items = visibleItems(root);
    items.erase(std::remove_if(items.begin(), items.end(),
                               [type](const QQuickItem *item) { return !isOfType(item, type); }),
                items.end());
    std::stable_sort(items.begin(), items.end(), isReadBefore);
    return items;
}

QQuickItem *SceneSearch::withText(QQuickItem *root, const char *property, const QString &text)
{
    return topmost(root, [property, &text](const QQuickItem *item) {
        return item->property(property).toString().endsWith(text);
    });
}
