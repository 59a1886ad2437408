// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/RpcMethods.h"

#include <QJsonArray>

#include "simulator/ArtworkServer.h"
#include "simulator/LibraryTree.h"
#include "simulator/MopidyModels.h"
#include "simulator/RpcTable.h"

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

RpcReply getImages(const Catalogue &catalogue, const QJsonObject &parameters)
{
    QJsonObject byUri;
    const QJsonArray uris = parameters.value(QStringLiteral("uris")).toArray();
    for (const QJsonValue &uri : uris)
        byUri.insert(uri.toString(), images(catalogue.coverSeed(uri.toString())));
    return {byUri, {}};
}

RpcReply lookup(const Catalogue &catalogue, const QJsonObject &parameters)
{
    QJsonObject byUri;
    const QJsonArray uris = parameters.value(QStringLiteral("uris")).toArray();
    for (const QJsonValue &uri : uris)
        byUri.insert(uri.toString(), LibraryTree::lookup(catalogue, uri.toString()));
    return {byUri, {}};
}

RpcReply search(const Catalogue &catalogue, const QJsonObject &parameters)
{
    const QString text =
        parameters.value(QStringLiteral("query")).toObject().value(QStringLiteral("any")).toString();
    if (text.isEmpty()) {
        return RpcReply::applicationError(QStringLiteral("ValidationError"),
                                          QStringLiteral("Expected \"any\" to be list of strings, not ''"));
    }
    QStringList schemes;
    const QJsonArray uris = parameters.value(QStringLiteral("uris")).toArray();
    for (const QJsonValue &uri : uris)
        schemes << uri.toString();
    return {LibraryTree::search(catalogue, text, schemes), {}};
}

} // namespace

void RpcMethods::addLibrary(RpcTable &table, const Catalogue &catalogue)
{
    table.add(QStringLiteral("core.library.get_images"), {QStringLiteral("uris")},
              [&catalogue](const QJsonObject &parameters) { return getImages(catalogue, parameters); });
    table.add(QStringLiteral("core.library.browse"), {QStringLiteral("uri")},
              [&catalogue](const QJsonObject &parameters) {
                  const QString uri = parameters.value(QStringLiteral("uri")).toString();
                  return RpcReply{LibraryTree::browse(catalogue, uri), {}};
              });
    table.add(QStringLiteral("core.library.lookup"), {QStringLiteral("uris")},
              [&catalogue](const QJsonObject &parameters) { return lookup(catalogue, parameters); });
    table.add(QStringLiteral("core.library.search"),
              {QStringLiteral("query"), QStringLiteral("uris"), QStringLiteral("exact")},
              [&catalogue](const QJsonObject &parameters) { return search(catalogue, parameters); });
}
