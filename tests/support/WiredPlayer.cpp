// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/WiredPlayer.h"

#include "player/PlayerTiming.h"
#include "support/Listed.h"
#include "support/Studio.h"

#include <QtTest>

namespace {

const QString addition = "core.tracklist.add"_s;

QString flags(int state, bool random, bool repeat, const QString &song)
{
    return "state %1 random %2 repeat %3 song %4"_s.arg(state).arg(int(random)).arg(int(repeat)).arg(song);
}

QString entryText(int tlid, const QString &uri)
{
    return "entry %1 %2"_s.arg(tlid).arg(uri);
}

} // namespace

WiredPlayer::WiredPlayer(int tick, int retry)
{
    PlayerTiming::current() = {tick, retry, 2 * retry};
    openServer();
    QVERIFY(relay.listen());
    m_player.setIpAddress(m_server->host());
    m_player.setPort(QString::number(relay.port()));
}

// No two servers have anything in common but the numbers of their entries.
void WiredPlayer::openServer()
{
    constexpr int tracks = 100000;
    m_server = std::make_unique<MusicServerSimulator>(Catalogue(++m_seed, tracks));
    QVERIFY(m_server->listen());
    relay.setTarget(m_server->port());
    const Catalogue &catalogue = m_server->catalogue();
    m_server->tracklist()->add({catalogue.track(tracks - 1), catalogue.track(tracks - 2)});
    m_server->tracklist()->setRepeat(m_seed % 2 == 0);
    m_server->playlists()->put("List %1"_s.arg(m_seed), {catalogue.track(3).uri});
    changePeer();
    connect(m_server.get(), &MusicServerSimulator::requestReceived, this, &WiredPlayer::received);
    connect(m_server.get(), &MusicServerSimulator::clientConnected, this, [this] {
        expect(-1); // requests that were made before there was a connection have taken numbers
        ++connections;
    });
}

void WiredPlayer::received(const QString &method)
{
    const ReceivedRequest &request = m_server->requests().constLast();
    note(request.id.toString().toInt(), method);
    if (method == addition)
        noteCommand(textOf(request.parameters));
}

// Each attempt begins to number its requests anew.
bool WiredPlayer::hasGivenUp()
{
    const int id = m_player.actionPlayIndex(nullptr, "");
    m_attempts += int(id <= m_lastId);
    m_lastId = id;
    return m_attempts >= 2;
}

// Requests are numbered, what asks for the number among them.
int WiredPlayer::sentBesidePolls()
{
    constexpr int requestsOfAPoll = 7;
    return (m_player.actionPlayIndex(nullptr, "") - m_asked++) % requestsOfAPoll;
}

void WiredPlayer::command(int number)
{
    m_player.actionPlayAdd({m_server->catalogue().track(number).uri}, -1, false);
}

void WiredPlayer::changePeer()
{
    m_server->playback()->play(3 - qMax(1, m_server->playback()->currentTlid())); // the other one of two
    m_server->playback()->pause();
}

QStringList WiredPlayer::truth()
{
    const Tracklist &tracklist = *m_server->tracklist();
    const Playback &playback = *m_server->playback();
    QStringList texts{flags(int(playback.state()), tracklist.isRandom(), tracklist.isRepeat(),
                            playback.current().track.uri)};
    for (const TracklistEntry &entry : tracklist.entries())
        texts << entryText(entry.tlid, entry.track.uri);
    for (const ShelfPlaylist &playlist : m_server->playlists()->playlists())
        texts << playlist.uri;
    return texts;
}

QStringList WiredPlayer::mirrorOf(HalvoraPlayer *player)
{
    const Song *song = player->currentSong();
    QStringList texts{
        flags(player->playPause(), player->shuffle(), player->repeat(), song ? song->uri() : QString())};
    const QList<Song *> queue = listed(player->queue());
    for (int row = 0; row < queue.size(); ++row)
        texts << entryText(player->queueTlid().at(row), queue.at(row)->uri());
    for (const PlayerItem *item : listed(player->playlists()))
        texts << item->uri();
    return texts;
}
