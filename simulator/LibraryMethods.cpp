// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/RpcMethods.h"

#include <QJsonArray>

#include "simulator/ArtworkServer.h"
#include "simulator/LibraryTree.h"
#include "simulator/MopidyModels.h"
#include "simulator/RpcTable.h"
#include "simulator/UriList.h"

namespace {

// Pictures are named relative to the server, as its library of local files does.
QJsonArray images(quint32 coverSeed)
{
    QJsonArray array;
    if (coverSeed == 0)
        return array;
    for (const int width : {64, 300, 640})
        array << MopidyModels::image(ArtworkServer::coverPath(coverSeed, width), width);
    return array;
}

QJsonArray imagesOf(const Catalogue &catalogue, const QString &uri)
{
    return images(catalogue.coverSeed(uri));
}

// What `found` has for each of the uris asked for.
RpcReply byUri(const Catalogue &catalogue, const QJsonObject &parameters,
               QJsonArray (*found)(const Catalogue &, const QString &))
{
    const QJsonValue asked = parameters.value(QStringLiteral("uris"));
    if (const std::optional<RpcReply> refusal = UriList::refusal(asked))
        return *refusal;
    QJsonObject answers;
    const QStringList uris = UriList::uris(asked);
    for (const QString &uri : uris)
        answers.insert(uri, found(catalogue, uri));
    return {answers, {}};
}

// The roots are under null; under an empty text there is nothing.
RpcReply browse(const Catalogue &catalogue, const QJsonObject &parameters)
{
    const QJsonValue asked = parameters.value(QStringLiteral("uri"));
    const QString uri = asked.toString();
    if (!asked.isNull() && !asked.isString())
        return RpcReply::applicationError(QStringLiteral("AttributeError"),
                                          QStringLiteral("Object has no attribute 'strip'"));
    if (asked.isString() && uri.isEmpty())
        return {QJsonArray(), {}};
    if (asked.isString() && !uri.contains(QLatin1Char(':')))
        return RpcReply::applicationError(QStringLiteral("ValidationError"),
                                          QStringLiteral("Expected a valid URI, not '%1'").arg(uri));
    return {LibraryTree::browse(catalogue, uri), {}};
}

RpcReply search(const Catalogue &catalogue, const QJsonObject &parameters)
{
    const QJsonValue any = parameters.value(QStringLiteral("query")).toObject().value(QStringLiteral("any"));
    const QString text = any.isArray() ? any.toArray().first().toString() : any.toString();
    if (text.isEmpty()) {
        return RpcReply::applicationError(QStringLiteral("ValidationError"),
                                          QStringLiteral("Expected \"any\" to be list of strings, not ''"));
    }
    const QJsonValue schemes = parameters.value(QStringLiteral("uris"));
    const bool everywhere = schemes.isUndefined() || schemes.isNull();
    if (const std::optional<RpcReply> refusal = everywhere ? std::nullopt : UriList::refusal(schemes))
        return *refusal;
    return {LibraryTree::search(catalogue, text, UriList::uris(schemes)), {}};
}

} // namespace

void RpcMethods::addLibrary(RpcTable &table, const Catalogue &catalogue)
{
    const QStringList uris{QStringLiteral("uris")};
    table.add(QStringLiteral("core.library.get_images"), uris, [&catalogue](const QJsonObject &parameters) {
        return byUri(catalogue, parameters, &imagesOf);
    });
    table.add(QStringLiteral("core.library.lookup"), uris, [&catalogue](const QJsonObject &parameters) {
        return byUri(catalogue, parameters, &LibraryTree::lookup);
    });
    table.add(QStringLiteral("core.library.browse"), {QStringLiteral("uri")},
              [&catalogue](const QJsonObject &parameters) { return browse(catalogue, parameters); });
    table.add(QStringLiteral("core.library.search"), {QStringLiteral("query")},
              {QStringLiteral("uris"), QStringLiteral("exact")},
              [&catalogue](const QJsonObject &parameters) { return search(catalogue, parameters); });
}
