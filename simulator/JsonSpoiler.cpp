// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/JsonSpoiler.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

// `left` counts the fields down to the one that is meant.
QJsonValue walked(const QJsonValue &value, int &left, const QJsonValue &with)
{
    const auto replacement = [&left, &with](const QJsonValue &field) {
        return left-- == 0 ? with : walked(field, left, with);
    };
    if (value.isArray()) {
        QJsonArray array = value.toArray();
        for (int place = 0; place < array.size() && left >= 0; ++place)
            array[place] = replacement(array.at(place));
        return array;
    }
    QJsonObject object = value.toObject();
    const QStringList keys = object.keys();
    for (const QString &key : keys) {
        if (left >= 0)
            object.insert(key, replacement(object.value(key)));
    }
    return value.isObject() ? QJsonValue(object) : value;
}

} // namespace

QJsonValue JsonSpoiler::spoiled(const QJsonValue &value, int field, const QJsonValue &with)
{
    return field < 0 ? value : walked(value, field, with);
}
