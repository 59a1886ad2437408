// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/UriList.h"

#include <QJsonArray>

#include <algorithm>

std::optional<RpcReply> UriList::refusal(const QJsonValue &value)
{
    const QJsonArray entries = value.isArray() ? value.toArray() : QJsonArray{QString()};
    const auto bad = std::find_if(entries.cbegin(), entries.cend(), [](const QJsonValue &entry) {
        return entry.toString().indexOf(QLatin1Char(':')) < 1;
    });
    if (bad == entries.cend())
        return {};
    const QString shown = value.isArray() ? QJsonValue(*bad).toString() : value.toVariant().toString();
    return RpcReply::applicationError(QStringLiteral("ValidationError"),
                                      QStringLiteral("Expected a list of URIs, not '%1'").arg(shown));
}

QStringList UriList::uris(const QJsonValue &value)
{
    return value.toVariant().toStringList();
}
