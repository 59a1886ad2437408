// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/PlayerItem.h"

#include <QJsonArray>

/**
 * The pictures of the items of one answer. Those of one album mostly have the same pictures and come one behind the
 * other: equal lists in turn share one table. A value for the stack of one function, in the items' thread.
 */
class PictureTables final
{
public:
    /// Gives an item a list of pictures ("width" in pixels, 0 when absent, and "uri") in place of what it has.
    void set(PlayerItem *item, const QJsonArray &pictures);
    /// The same beside what it has.
    void add(PlayerItem *item, const QJsonArray &pictures);

private:
    const QHash<int, QString> &tableOf(const QJsonArray &pictures);

    QJsonArray m_pictures; // of the item before
    QHash<int, QString> m_table;
};
