// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "SceneSearch.h"

#include <QVariant>

#include <algorithm>

namespace {

void collect(QQuickItem *item, QVector<QQuickItem *> *found)
{
    if (!item->isVisible())
        return;
    if (item->width() > 0 && item->height() > 0)
        found->append(item);
    const auto children = item->childItems();
    for (QQuickItem *child : children)
        collect(child, found);
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
QQuickItem *first(QQuickItem *root, Predicate fits)
{
    const auto items = SceneSearch::visibleItems(root);
    const auto found = std::find_if(items.begin(), items.end(), fits);
    return found == items.end() ? nullptr : *found;
}

} // namespace

QVector<QQuickItem *> SceneSearch::visibleItems(QQuickItem *root)
{
    QVector<QQuickItem *> found;
    if (root)
        collect(root, &found);
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
    return first(root, [type](const QQuickItem *item) { return isOfType(item, type); });
}

QQuickItem *SceneSearch::withText(QQuickItem *root, const char *property, const QString &text)
{
    return first(root, [property, &text](const QQuickItem *item) {
        return item->property(property).toString().endsWith(text);
    });
}
