// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/HalvoraPlayer.h"

#include "player/JsonReader.h"
#include "player/PictureTables.h"
#include "player/Reclaimer.h"
#include "player/SocketHandler.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>

// The mirror of the server's tracklist and what changes it.

namespace {

using Queue = QMap<int, Song *>;

// Servers number in order, so each entry goes to the end of the map, or near it.
void enter(Queue *queue, int tlid, Song *song)
{
    if (!queue->isEmpty() && queue->lastKey() >= tlid)
        Reclaimer::drop(queue->value(tlid)); // a number twice
    queue->insert(queue->cend(), tlid, song);
}

struct QueueEntry
{
    int tlid = 0;
    Song *song = nullptr;
};

// What a key twice means is Qt's to judge.
bool readEntry(JsonReader *reader, QueueEntry *entry)
{
    bool numbered = false;
    QStringView key;
    reader->enterObject();
    while (reader->nextKey(&key)) {
        bool read = false;
        if (key == QLatin1String("tlid"))
            read = !numbered && (numbered = reader->readNumber(&entry->tlid));
        else if (key == QLatin1String("track"))
            read = !entry->song && (entry->song = Song::read(reader));
        else
            read = reader->skip();
        if (!read)
            return false;
    }
    return !reader->hasFailed();
}

} // namespace

bool HalvoraPlayer::readLongReply(const char *handler, int, const JsonText &result)
{
    return qstrcmp(handler, "updateQueue") == 0 && updateQueue(result);
}

bool HalvoraPlayer::updateQueue(const JsonText &result)
{
    JsonReader reader(result);
    Queue queue;
    QStringList uris;
    reader.enterArray();
    bool plain = true;
    while (plain && reader.nextElement()) {
        QueueEntry entry;
        plain = readEntry(&reader, &entry);
        if (!entry.song)
            continue;
        uris.append(entry.song->uri());
        enter(&queue, entry.tlid, entry.song);
    }
    if (!plain || !reader.isComplete()) {
        qDeleteAll(queue);
        return false;
    }
    setQueue(queue, uris);
    return true;
}

void HalvoraPlayer::updateQueue(QJsonValue v)
{
    Queue queue;
    QStringList uris;
    const QJsonArray entries = v.toArray();
    for (const QJsonValue &value : entries) {
        const QCborMap entry = QCborMap::fromJsonObject(value.toObject());
        const QCborValue track = entry.value(QLatin1String("track"));
        if (track.isUndefined())
            continue;
        auto *song = new Song(track.toMap());
        uris.append(song->uri());
        enter(&queue, entry.value(QLatin1String("tlid")).toJsonValue().toInt(), song);
    }
    setQueue(queue, uris);
}

void HalvoraPlayer::setQueue(const Queue &queue, const QStringList &uris)
{
    const QList<Song *> former = m_queueMap.values();
    m_queueMap = queue;
    m_queueSnapshot.clear();
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
    const Song *before = nullptr;
    for (int count = 0; count < atOnce && song != m_queueMap.end(); ++count, ++song) {
        song.value()->shareDetails(before ? *before : *song.value());
        before = song.value();
    }
    if (song == m_queueMap.end())
        return;
    m_nextToComplete = song.key();
    m_completion.start(0);
}

void HalvoraPlayer::updateQueueImages(QJsonValue v)
{
    const QJsonObject picturesByUri = v.toObject();
    PictureTables tables;
    for (Song *song : qAsConst(m_queueMap))
        tables.add(song, picturesByUri.value(song->uri()).toArray());
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
