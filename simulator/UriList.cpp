// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/UriList.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QVariant>

#include <algorithm>

namespace {

// A table counts as the list of its keys, as whatever can be walked through does there; other values are one bad entry.
QJsonArray entriesOf(const QJsonValue &value)
{
    if (value.isObject())
        return QJsonArray::fromStringList(value.toObject().keys());
    return value.isArray() ? value.toArray() : QJsonArray{QString()};
}

} // namespace

std::optional<RpcReply> UriList::refusal(const QJsonValue &value)
{
    const QJsonArray entries = entriesOf(value);
    const auto bad = std::find_if(entries.cbegin(), entries.cend(), [](const QJsonValue &entry) {
        return entry.toString().indexOf(QLatin1Char(':')) < 1;
    });
    if (bad == entries.cend())
        return {};
    const QString shown = value.isArray() || value.isObject() ? QJsonValue(*bad).toString()
                                                              : value.toVariant().toString();
    return RpcReply::applicationError(QStringLiteral("ValidationError"),
                                      QStringLiteral("Expected a list of URIs, not '%1'").arg(shown));
}

QStringList UriList::uris(const QJsonValue &value)
{
    return QVariant(entriesOf(value).toVariantList()).toStringList();
}
