// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/JsonText.h"

#include <QHash>
#include <QJsonValue>
#include <QStringList>

#include <optional>

class PlayerItem;
class SectionItems;

/// The server's lists read into rows. Plain functions of the GUI thread; rows and sections are new objects without a
/// parent. Of each entry only key, name and type are read; an answer that is no list has no rows.
struct LibraryRows
{
    QStringList types;                       ///< in the order in which they were met
    QHash<QString, SectionItems *> sections; ///< one for each of them

    /// The entries of a directory. Entries of a type that is no row leave an empty section.
    static LibraryRows fromDirectory(const QJsonValue &v);
    /// The entries of a playlist: tracks alone are rows.
    static LibraryRows fromPlaylist(const QJsonValue &v);
    /// The same from the text of the answer; nothing when it is none that JsonReader reads.
    static std::optional<LibraryRows> fromDirectory(const JsonText &answer);
    static std::optional<LibraryRows> fromPlaylist(const JsonText &answer);
    /// The results of a search, one element for each of the server's backends. Of backends that answer the same type
    /// the last one's rows stand, once for each of them.
    static LibraryRows fromSearch(const QJsonValue &v);
    /// The tracks in a directory, for the caller to drop.
    static QList<PlayerItem *> tracksOf(const QJsonValue &v);
};
