// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "ClientPopups.h"

#include "SceneSearch.h"

#include <QMetaMethod>

#include <algorithm>

namespace {

QMetaMethod closingSignal(const QQuickItem *item)
{
    const QMetaObject *meta = item->metaObject();
    for (const char *signature : {"close()", "close(QQuickItem*)"}) {
        const QMetaMethod method = meta->method(meta->indexOfSignal(signature));
        if (method.isValid())
            return method;
    }
    return {};
}

} // namespace

bool ClientPopups::closeTopmost(QQuickItem *root)
{
    const auto items = SceneSearch::visibleItems(root);
    const auto top = std::find_if(items.rbegin(), items.rend(),
                                  [](const QQuickItem *item) { return closingSignal(item).isValid(); });
    if (top == items.rend())
        return false;
    const QMetaMethod signal = closingSignal(*top);
    if (signal.parameterCount() == 0)
        return signal.invoke(*top);
    return signal.invoke(*top, Q_ARG(QQuickItem *, *top));
}
