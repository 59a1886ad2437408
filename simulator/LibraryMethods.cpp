// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/RpcMethods.h"

#include <QJsonArray>

#include "simulator/ArtworkServer.h"
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

} // namespace

void RpcMethods::addLibrary(RpcTable &table, const Catalogue &catalogue)
{
    table.add(QStringLiteral("core.library.get_images"), {QStringLiteral("uris")},
              [&catalogue](const QJsonObject &parameters) { return getImages(catalogue, parameters); });
}
