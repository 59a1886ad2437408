// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "images/BackupAnswer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>

namespace {

struct SizeWidth
{
    QLatin1String size;
    int width; // pixels
};

const SizeWidth sizeWidths[] = {
    {QLatin1String("small"), 30},       {QLatin1String("medium"), 65}, {QLatin1String("large"), 180},
    {QLatin1String("extralarge"), 300}, {QLatin1String("mega"), 350},
};
constexpr int otherWidth = 128;

int widthOf(const QString &size)
{
    const auto *const known = std::find_if(std::begin(sizeWidths), std::end(sizeWidths),
                                           [&size](const SizeWidth &entry) { return entry.size == size; });
    return known == std::end(sizeWidths) ? otherWidth : known->width;
}

} // namespace

std::optional<QHash<int, QString>> BackupAnswer::pictures(const QByteArray &body)
{
    const QJsonObject answer = QJsonDocument::fromJson(body).object();
    if (answer.contains(QLatin1String("error")) || !answer.contains(QLatin1String("album")))
        return std::nullopt;
    QHash<int, QString> images;
    const QJsonArray entries = answer[QLatin1String("album")].toObject()[QLatin1String("image")].toArray();
    for (const QJsonValue &entry : entries) {
        const QString uri = entry.toObject()[QLatin1String("#text")].toString();
        if (!uri.isEmpty())
            images.insert(widthOf(entry.toObject()[QLatin1String("size")].toString()), uri);
    }
    return images;
}
