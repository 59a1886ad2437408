// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

// What a music server says, a message a line, to a player that waits for the replies to a whole poll (numbers 0 to 6).
// Lines of one of the words below are what a person does meanwhile, which asks for more replies.

#include "player/HalvoraPlayer.h"
#include "support/FuzzRun.h"
#include "support/Listed.h"
#include "support/Require.h"
#include "support/Words.h"

#include <algorithm>

namespace {

struct Deed
{
    const char *word;
    void (*act)(HalvoraPlayer &player);
};

QString list()
{
    return QStringLiteral("m3u:a");
}

void editWithQueue(HalvoraPlayer &player)
{
    QList<PlayerItem *> items;
    for (Song *song : listed(player.queue()))
        items << song;
    player.actionEditPlaylistWithUris(list(), items);
}

constexpr Deed deeds[] = {
    {"tick", [](HalvoraPlayer &player) { player.refreshTimerTimeout(); }},
    {"open", [](HalvoraPlayer &player) { player.actionOpenPlaylistWithUri(list()); }},
    {"add", [](HalvoraPlayer &player) { player.actionAddPlaylistWithUri(list()); }},
    {"play", [](HalvoraPlayer &player) { player.actionPlayAdd({list()}, 1, true); }},
    {"create", [](HalvoraPlayer &player) { player.actionCreatePlaylist(list(), true); }},
    {"edit", editWithQueue},
    {"remove", [](HalvoraPlayer &player) { player.actionRemoveTrackFromQueue(0); }},
    {"redial", [](HalvoraPlayer &player) { player.startConnection(); }},
};

void readAll(const PlayerItem *item)
{
    REQUIRE(item);
    for (const QString &path : {item->smallImgPath(), item->mediumImgPath(), item->largeImgPath()})
        REQUIRE(item->images->isEmpty() ? path.isEmpty() : item->images->values().contains(path));
    if (const auto *song = qobject_cast<const Song *>(item))
        REQUIRE(song->artistsString() == song->artists().join(QLatin1String(", ")));
}

void requireSound(HalvoraPlayer &player)
{
    const QList<int> tlids = player.queueTlid();
    const QList<Song *> queue = listed(player.queue());
    REQUIRE(tlids.size() == queue.size());
    REQUIRE(std::is_sorted(tlids.begin(), tlids.end(), std::less_equal<>()));
    for (const Song *song : queue)
        readAll(song);
    if (player.currentSong())
        readAll(player.currentSong());
    const QList<PlayerItem *> playlists = listed(player.playlists());
    for (const PlayerItem *playlist : playlists) {
        const PlayerItem *found = playlists.value(player.playlistPosition(playlist->uri()));
        REQUIRE(found && found->uri() == playlist->uri());
        REQUIRE(player.getPlaylistName(playlist->uri()) == found->name());
    }
    REQUIRE(player.filters().size() == player.filterTitles().size());
    REQUIRE(player.playPause() >= HalvoraPlayer::Stopped && player.playPause() <= HalvoraPlayer::Playing);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    constexpr int mostLines = 32;
    const FuzzRun run;
    HalvoraPlayer player;
    player.setIpAddress(QStringLiteral("music"));
    player.startConnection();
    player.socketConnected();
    player.refreshTimerTimeout();

    for (const QByteArray &line : FuzzRun::lines(data, size, mostLines)) {
        if (const Deed *deed = entryOf(deeds, line))
            deed->act(player);
        else
            player.socketMessageReceived(QString::fromUtf8(line));
        requireSound(player);
        FuzzRun::settle();
        requireSound(player);
    }
    return 0;
}
