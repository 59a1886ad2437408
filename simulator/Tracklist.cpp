// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/Tracklist.h"

#include <algorithm>

#include "simulator/Words.h"

Tracklist::Tracklist(QObject *parent) : QObject(parent) { }

int Tracklist::position(int tlid) const
{
    const auto found = std::find_if(m_entries.cbegin(), m_entries.cend(),
                                    [tlid](const TracklistEntry &entry) { return entry.tlid == tlid; });
    return found == m_entries.cend() ? -1 : int(found - m_entries.cbegin());
}

const TracklistEntry *Tracklist::entry(int tlid) const
{
    const int at = position(tlid);
    return at < 0 ? nullptr : &m_entries.at(at);
}

QVector<TracklistEntry> Tracklist::add(const QVector<CatalogueTrack> &tracks, int position)
{
    QVector<TracklistEntry> added;
    int at = position < 0 ? m_entries.size() : std::min(position, m_entries.size());
    for (const CatalogueTrack &track : tracks) {
        added << TracklistEntry{++m_lastTlid, track};
        m_entries.insert(at++, added.constLast());
    }
    if (added.isEmpty())
        return added;
    shuffle();
    Q_EMIT changed();
    return added;
}

QVector<TracklistEntry> Tracklist::remove(const QVector<int> &tlids)
{
    QVector<TracklistEntry> removed;
    for (const int tlid : tlids) {
        const int at = position(tlid);
        if (at < 0)
            continue;
        removed << m_entries.takeAt(at);
        m_shuffled.removeOne(tlid);
    }
    Q_EMIT changed();
    return removed;
}

void Tracklist::clear()
{
    m_entries.clear();
    m_shuffled.clear();
    Q_EMIT changed();
}

void Tracklist::setRandom(bool random)
{
    const bool differs = random != m_random;
    m_random = random;
    shuffle();
    if (differs)
        Q_EMIT optionsChanged();
}

void Tracklist::setRepeat(bool repeat)
{
    const bool differs = repeat != m_repeat;
    m_repeat = repeat;
    if (differs)
        Q_EMIT optionsChanged();
}

int Tracklist::following(int tlid)
{
    if (m_entries.isEmpty())
        return 0;
    if (m_random)
        return followingAtRandom(tlid);
    const int next = position(tlid) + 1;
    if (next < m_entries.size())
        return m_entries.at(next).tlid;
    return m_repeat ? m_entries.constFirst().tlid : 0;
}

int Tracklist::preceding(int tlid) const
{
    // As the server does: where the order is not the list's, "previous" plays the same again.
    if (m_random || m_repeat)
        return tlid;
    const int at = position(tlid);
    return at < 1 ? 0 : m_entries.at(at - 1).tlid;
}

int Tracklist::followingAtRandom(int tlid)
{
    m_shuffled.removeOne(tlid);
    if (m_shuffled.isEmpty() && (m_repeat || tlid == 0))
        shuffle();
    return m_shuffled.isEmpty() ? 0 : m_shuffled.constFirst();
}

void Tracklist::shuffle()
{
    m_shuffled.clear();
    for (const TracklistEntry &entry : qAsConst(m_entries))
        m_shuffled << entry.tlid;
    std::sort(m_shuffled.begin(), m_shuffled.end(), [](int left, int right) {
        return Words::mix(quint64(left), 20) < Words::mix(quint64(right), 20);
    });
}
