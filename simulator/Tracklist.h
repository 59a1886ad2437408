// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QVector>

#include "simulator/Catalogue.h"

/// One entry of the tracklist.
struct TracklistEntry
{
    int tlid = 0;
    CatalogueTrack track;
};

/**
 * The queue of the simulated music server: its entries in order, and the two options that decide what follows
 * what. Owned by the MusicServerSimulator, lives on its thread. Entries are known by their tlid, which counts
 * from 1 and is never used twice.
 */
class Tracklist final : public QObject
{
    Q_OBJECT

public:
    explicit Tracklist(QObject *parent = nullptr);

    const QVector<TracklistEntry> &entries() const { return m_entries; }

    /// Position of the entry, -1 when there is none.
    int position(int tlid) const;
    const TracklistEntry *entry(int tlid) const; ///< null when there is none; valid until the list changes

    /// Inserts before `position`; negative or beyond the end: appends. Returns what was added. An empty list
    /// of tracks changes nothing.
    QVector<TracklistEntry> add(const QVector<CatalogueTrack> &tracks, int position = -1);

    /// Removes what is there of these; reports one change, even if none was. Returns what was removed.
    QVector<TracklistEntry> remove(const QVector<int> &tlids);
    void clear();

    bool isRandom() const { return m_random; }
    bool isRepeat() const { return m_repeat; }
    void setRandom(bool random);
    void setRepeat(bool repeat);

    /// The tlid that follows or precedes `tlid` under the options, 0 for none. At random, each entry comes
    /// once before any comes again, in an order that is the same in every run.
    int following(int tlid);
    int preceding(int tlid) const;

Q_SIGNALS:
    void changed();
    void optionsChanged();

private:
    void shuffle();
    int followingAtRandom(int tlid);

    QVector<TracklistEntry> m_entries;
    QVector<int> m_shuffled;
    int m_lastTlid = 0;
    bool m_random = false;
    bool m_repeat = false;
};
