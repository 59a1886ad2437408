// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/HalvoraPlayer.h"

#include "player/Reclaimer.h"
#include "player/SocketHandler.h"
#include "player/TrackParser.h"

#include <limits>

// The mirror of the server's tracklist and what changes it.

void HalvoraPlayer::updateQueue(QJsonValue v)
{
    const QList<Song *> former = m_queueMap.values();
    m_queueMap.clear();
    m_queueSnapshot.clear();
    QStringList uris;
    const QJsonArray entries = v.toArray();
    for (const QJsonValue &value : entries) {
        const QCborMap entry = QCborMap::fromJsonObject(value.toObject());
        const QCborValue track = entry.value(QLatin1String("track"));
        if (track.isUndefined())
            continue;
        auto *song = new Song(track.toMap());
        uris.append(song->uri());
        const int tlid = entry.value(QLatin1String("tlid")).toJsonValue().toInt();
        // Servers number in order, so each entry goes to the end of the map, or near it.
        if (!m_queueMap.isEmpty() && m_queueMap.lastKey() >= tlid)
            Reclaimer::drop(m_queueMap.value(tlid)); // a number twice
        m_queueMap.insert(m_queueMap.cend(), tlid, song);
    }
    Q_EMIT queueChanged();
    Reclaimer::dropAll(former);
    m_nextToComplete = std::numeric_limits<int>::min();
    m_completion.start(0);
    if (!uris.isEmpty()) {
        post(QStringLiteral("core.library.get_images"),
             {{QStringLiteral("uris"), QJsonArray::fromStringList(uris)}}, this, "updateQueueImages");
    }
}

// Lets go of the server's answer bit by bit, when there is nothing else to do.
void HalvoraPlayer::completeSomeSongs()
{
    constexpr int atOnce = 200;
    auto song = m_queueMap.lowerBound(m_nextToComplete);
    for (int count = 0; count < atOnce && song != m_queueMap.end(); ++count, ++song)
        song.value()->complete();
    if (song == m_queueMap.end())
        return;
    m_nextToComplete = song.key();
    m_completion.start(0);
}

void HalvoraPlayer::updateQueueImages(QJsonValue v)
{
    const QJsonObject picturesByUri = v.toObject();
    for (Song *song : qAsConst(m_queueMap))
        TrackParser::addImages(song, picturesByUri.value(song->uri()).toArray());
}

void HalvoraPlayer::actionPlayTrack(int tlid)
{
    post(QStringLiteral("core.playback.play"), {{QStringLiteral("tlid"), tlid}});
}

void HalvoraPlayer::actionRemoveTrackFromQueue(int index)
{
    const QList<int> tlids = queueTlid();
    if (index < 0 || index >= tlids.size())
        return;
    const QJsonArray tlid{tlids.at(index)};
    const QString method = QStringLiteral("core.tracklist.remove");
    QJsonObject request = newRequest(method);
    request.insert(QStringLiteral("params"), QJsonObject{{QStringLiteral("tlid"), tlid}});
    // Servers of version 3 refuse that form and take this one.
    if (SocketHandler *record = sendRequest(request, nullptr, ""))
        record->paramsIfRefused = {{QStringLiteral("criteria"), QJsonObject{{QStringLiteral("tlid"), tlid}}}};
}

void HalvoraPlayer::actionClearQueue()
{
    post(QStringLiteral("core.tracklist.clear"));
}

void HalvoraPlayer::actionPlayAdd(QStringList uris, int position, bool sendPlay)
{
    QJsonObject params{{QStringLiteral("uris"), QJsonArray::fromStringList(uris)}};
    if (position != -1)
        params.insert(QStringLiteral("at_position"), position);
    if (sendPlay)
        post(QStringLiteral("core.tracklist.add"), params, this, "actionPlayNow");
    else
        post(QStringLiteral("core.tracklist.add"), params);
}

void HalvoraPlayer::actionPlayNow(QJsonValue v)
{
    if (!v.isArray())
        return;
    const QJsonObject first = v.toArray().first().toObject();
    const auto tlid = first.constFind(QLatin1String("tlid"));
    QJsonObject params;
    if (tlid != first.constEnd())
        params.insert(QStringLiteral("tlid"), tlid.value());
    post(QStringLiteral("core.playback.play"), params);
}

int HalvoraPlayer::actionPlayIndex(QObject *rec, const char *hdl)
{
    return post(QStringLiteral("core.tracklist.index"), rec, hdl);
}

void HalvoraPlayer::actionResetQueueWithUris(QStringList uris)
{
    post(QStringLiteral("core.playback.stop"));
    actionClearQueue();
    actionPlayAdd(uris, -1, true);
}
