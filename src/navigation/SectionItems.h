// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/PlayerItem.h"

#include <QHash>
#include <QStringList>

/**
 * The rows of one type in a list of the library. What stands under "track" is a Song, under "album" an Album, and
 * under "directory", "playlist" and "artist" a plain PlayerItem.
 *
 * Made without a parent, in the GUI thread, by whoever reads the server's answer. The views that show it share it, and
 * the last one to let go of it drops it with its rows, which a screen may still show for a while.
 */
class SectionItems final : public QObject
{
    Q_OBJECT

public:
    explicit SectionItems(QObject *parent = nullptr);

    QStringList itemUris;      ///< the keys of the rows, position by position those of `items`
    QList<PlayerItem *> items; ///< the rows, in the server's order

    void acquire() { ++m_users; }
    /// For each acquire(), and once for a section that nobody has acquired. The last one drops the section and its rows.
    void release();

    /// Adds a row at the end of both lists.
    void append(PlayerItem *item);
    /// Position of the first row with that key, -1 when there is none. Takes the same time in a section of any size.
    int positionOf(const QString &uri) const;
    /// That row; null when there is none.
    PlayerItem *itemOf(const QString &uri) const;

private:
    void index() const;

    mutable QHash<QString, int> m_positions; // of the first m_indexed rows
    mutable int m_indexed = 0;
    int m_users = 0;
};
