// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/PictureTables.h"

#include <QJsonObject>

namespace {

void enter(QHash<int, QString> *table, const QJsonArray &pictures)
{
    for (const QJsonValue &value : pictures) {
        const QJsonObject picture = value.toObject();
        table->insert(picture.value(QLatin1String("width")).toInt(),
                      picture.value(QLatin1String("uri")).toString());
    }
}

} // namespace

void PictureTables::set(PlayerItem *item, const QJsonArray &pictures)
{
    *item->images = tableOf(pictures);
}

void PictureTables::add(PlayerItem *item, const QJsonArray &pictures)
{
    if (item->images->isEmpty())
        return set(item, pictures);
    enter(item->images, pictures);
}

const QHash<int, QString> &PictureTables::tableOf(const QJsonArray &pictures)
{
    if (pictures == m_pictures)
        return m_table;
    m_pictures = pictures;
    m_table.clear();
    enter(&m_table, pictures);
    return m_table;
}
