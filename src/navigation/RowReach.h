// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/PlayerItem.h"

#include <QStringList>

/// What lists ask for ahead of what is on show. GUI thread.
namespace RowReach {

constexpr int rows = 10; ///< on either side of it

inline void appendOnce(QStringList *uris, const QString &uri)
{
    if (!uris->contains(uri))
        uris->append(uri);
}

/// The keys, each once, of the items from `start` up to but not including `end` that have no picture.
inline QStringList withoutPictures(const QList<PlayerItem *> &items, int start, int end)
{
    QStringList uris;
    for (int i = start; i < end; ++i) {
        if (items.at(i)->images->isEmpty())
            appendOnce(&uris, items.at(i)->uri());
    }
    return uris;
}

} // namespace RowReach
