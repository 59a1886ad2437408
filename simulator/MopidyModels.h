// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QJsonArray>
#include <QJsonObject>

#include "simulator/Catalogue.h"

struct ShelfPlaylist;

/**
 * The music server's JSON for its models, "__model__" keys included. As the server does, keys without a value
 * are left out. Plain functions.
 */
namespace MopidyModels {

QJsonObject track(const CatalogueTrack &track);
QJsonObject tlTrack(int tlid, const CatalogueTrack &track);
QJsonObject album(const CatalogueTrack &track); ///< the album of a track
QJsonObject artist(const CatalogueArtist &artist);
QJsonObject searchResult(const QString &uri, const QJsonArray &tracks, const QJsonArray &albums,
                         const QJsonArray &artists); ///< kinds without a find are left out
/// With `tracks` as they are given; an empty list is left out.
QJsonObject playlist(const ShelfPlaylist &playlist, const QJsonArray &tracks = {});
QJsonObject ref(const QString &type, const QString &uri, const QString &name);
QJsonObject image(const QString &uri, int width); ///< square, width in pixels

} // namespace MopidyModels
