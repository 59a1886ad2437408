// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Requests.h"

#include "support/Text.h"

#include <QJsonDocument>

QString Requests::call(const QString &method, const QJsonObject &parameters)
{
    return method + QString::fromUtf8(QJsonDocument(parameters).toJson(QJsonDocument::Compact));
}

QString Requests::ofUri(const QString &method, const QString &uri)
{
    return call(method, {{"uri"_s, uri}});
}

QString Requests::ofUris(const QString &method, const QStringList &uris)
{
    return call(method, {{"uris"_s, QJsonArray::fromStringList(uris)}});
}

QString Requests::add(const QStringList &uris, int position)
{
    return call("tracklist.add"_s,
                {{"uris"_s, QJsonArray::fromStringList(uris)}, {"at_position"_s, position}});
}

QString Requests::play(int tlid)
{
    return call("playback.play"_s, {{"tlid"_s, tlid}});
}

QString Requests::searchCall(const QString &text, const QJsonValue &uris)
{
    return call("library.search"_s, {{"query"_s, QJsonObject{{"any"_s, text}}}, {"uris"_s, uris}});
}

QString Requests::askPosition()
{
    return call("tracklist.index"_s);
}
