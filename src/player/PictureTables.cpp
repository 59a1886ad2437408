// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/PictureTables.h"

#include <QJsonObject>

void PictureTables::set(PlayerItem *item, const QJsonArray &pictures)
{
    *item->images = tableOf(pictures);
}

void PictureTables::add(PlayerItem *item, const QJsonArray &pictures)
{
    if (item->images->isEmpty())
        return set(item, pictures);
    const QHash<int, QString> table = tableOf(pictures);
    for (auto it = table.cbegin(); it != table.cend(); ++it)
        item->images->insert(it.key(), it.value());
}

const QHash<int, QString> &PictureTables::tableOf(const QJsonArray &pictures)
{
    if (pictures == m_pictures)
        return m_table;
    m_pictures = pictures;
    m_table.clear();
    for (const QJsonValue &value : pictures) {
        const QJsonObject picture = value.toObject();
        m_table.insert(picture.value(QLatin1String("width")).toInt(),
                       picture.value(QLatin1String("uri")).toString());
    }
    return m_table;
}
