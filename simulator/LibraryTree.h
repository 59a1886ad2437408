// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include "simulator/Catalogue.h"

/**
 * A catalogue as the music server shows it to those who browse, look up and search. Plain functions, callable on
 * any thread; the models are those of MopidyModels.
 */
namespace LibraryTree {

/// The rows under a directory, an album, an artist or a podcast, as references; the roots for an empty uri, and none
/// for a uri that is not known.
QJsonArray browse(const Catalogue &catalogue, const QString &uri);

/// What a uri stands for: itself for a playable entry, all of its tracks for an album or an artist, nothing for any
/// other.
QVector<CatalogueTrack> tracksOf(const Catalogue &catalogue, const QString &uri);
/// The models of tracksOf().
QJsonArray lookup(const Catalogue &catalogue, const QString &uri);

/// One result for each service among `schemes` ("local:"; all of them when empty) with what has `text` in its name,
/// at most `most` of a kind.
QJsonArray search(const Catalogue &catalogue, const QString &text, const QStringList &schemes, int most = 50);

} // namespace LibraryTree
