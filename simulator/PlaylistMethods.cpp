// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/RpcMethods.h"

#include <QJsonArray>

#include "simulator/MopidyModels.h"
#include "simulator/PlaylistShelf.h"
#include "simulator/RpcTable.h"

namespace {

QJsonArray asList(const PlaylistShelf *playlists)
{
    QJsonArray refs;
    for (const ShelfPlaylist &playlist : playlists->playlists())
        refs << MopidyModels::ref(QStringLiteral("playlist"), playlist.uri, playlist.name);
    return refs;
}

} // namespace

void RpcMethods::addPlaylists(RpcTable &table, PlaylistShelf *playlists)
{
    table.add(QStringLiteral("core.playlists.as_list"), {}, [playlists](const QJsonObject &) {
        return RpcReply{asList(playlists), {}};
    });
}
