// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QJsonObject>

#include "simulator/Catalogue.h"

/**
 * The music server's JSON for its models, "__model__" keys included. As the server does, keys without a value
 * are left out. Plain functions.
 */
namespace MopidyModels {

QJsonObject track(const CatalogueTrack &track);
QJsonObject tlTrack(int tlid, const CatalogueTrack &track);
QJsonObject ref(const QString &type, const QString &uri, const QString &name);
QJsonObject image(const QString &uri, int width); ///< square, width in pixels

} // namespace MopidyModels
