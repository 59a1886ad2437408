// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/HalvoraPlayer.h"

#include "player/PictureTables.h"
#include "player/Reclaimer.h"
#include "player/TrackParser.h"

// What the server plays: its events, the mirror of the current song, and the transport commands.

struct HalvoraPlayer::Event
{
    const char *name;
    bool isPrefix;
    void (HalvoraPlayer::*react)(const QJsonObject &message);
};

void HalvoraPlayer::eventReceived(const QJsonObject &message)
{
    using Player = HalvoraPlayer;
    static constexpr Event events[] = {
        {"playback_state_changed", false, &Player::playbackStateChanged},
        {"options_changed", false, &Player::optionsChanged},
        {"track_playback_", true, &Player::trackPlaybackEvent},
        {"stream_title_changed", false, &Player::streamTitleChanged},
        {"tracklist_changed", false, &Player::tracklistChanged},
        {"playlist_", true, &Player::playlistEvent},
    };

    const QString name = message.value(QLatin1String("event")).toString();
    for (const Event &event : events) {
        const QLatin1String expected(event.name);
        if (event.isPrefix ? name.startsWith(expected) : name == expected) {
            (this->*event.react)(message);
            return;
        }
    }
}

void HalvoraPlayer::playbackStateChanged(const QJsonObject &message)
{
    updatePlaybackStatus(message.value(QLatin1String("new_state")));
}

void HalvoraPlayer::optionsChanged(const QJsonObject &)
{
    post(QStringLiteral("core.tracklist.get_random"), this, "updateRandom");
    post(QStringLiteral("core.tracklist.get_repeat"), this, "updateRepeat");
}

void HalvoraPlayer::trackPlaybackEvent(const QJsonObject &message)
{
    const QJsonObject entry = message.value(QLatin1String("tl_track")).toObject();
    updateTrackInfo(entry.value(QLatin1String("track")));
    setCurrentTlid(entry.value(QLatin1String("tlid")).toInt());
}

void HalvoraPlayer::streamTitleChanged(const QJsonObject &message)
{
    if (m_currentSong)
        m_currentSong->setName(message.value(QLatin1String("title")).toString());
}

void HalvoraPlayer::tracklistChanged(const QJsonObject &)
{
    post(QStringLiteral("core.tracklist.get_tl_tracks"), this, "updateQueue");
}

void HalvoraPlayer::playlistEvent(const QJsonObject &)
{
    actionRefreshPlaylists();
}

void HalvoraPlayer::updatePlaybackStatus(QJsonValue v)
{
    const QString state = v.toString();
    setPlayPause(state == QLatin1String("playing")      ? Playing
                     : state == QLatin1String("paused") ? Paused
                                                        : Stopped);
}

void HalvoraPlayer::updateRandom(QJsonValue v)
{
    setShuffle(v.toBool());
}

void HalvoraPlayer::updateRepeat(QJsonValue v)
{
    setRepeat(v.toBool());
}

void HalvoraPlayer::updateTrackTime(QJsonValue v)
{
    if (m_currentSong)
        m_currentSong->setCurrTime(TrackParser::wholeSeconds(v));
}

void HalvoraPlayer::updateTrackInfo(QJsonValue v)
{
    const QJsonObject track = v.toObject();
    if (!track.contains(QLatin1String("uri")))
        return;
    if (!m_currentSong || m_currentSong->uri() != track.value(QLatin1String("uri")).toString()) {
        m_currentSong = new Song(QCborMap::fromJsonObject(track));
        if (m_currentSong->uri().startsWith(QLatin1String("tunein:")))
            m_currentSong->setName(m_currentSong->name()); // as streams do; nobody listens to a song this new
        m_currentSong->setDuration(TrackParser::wholeSeconds(track.value(QLatin1String("length"))));
        Q_EMIT currentSongChanged();
        Reclaimer::drop(m_madeSong);
        m_madeSong = m_currentSong;
    }
    if (m_currentSong && m_currentSong->images->isEmpty()) { // whoever heard of it may have destroyed it
        post(QStringLiteral("core.library.get_images"),
             {{QStringLiteral("uris"), QJsonArray{m_currentSong->uri()}}}, this, "updateTrackImages");
    }
}

void HalvoraPlayer::updateTrackImages(QJsonValue v)
{
    const QJsonObject picturesByUri = v.toObject();
    if (picturesByUri.isEmpty() || !m_currentSong)
        return;
    const QJsonArray pictures = picturesByUri.constBegin().value().toArray();
    if (pictures.isEmpty())
        return;
    PictureTables().set(m_currentSong, pictures);
    Q_EMIT currentSongImageChanged();
}

void HalvoraPlayer::actionPlay()
{
    post(m_playPause == Stopped ? QStringLiteral("core.playback.play")
                                : QStringLiteral("core.playback.resume"));
}

void HalvoraPlayer::actionPause()
{
    post(QStringLiteral("core.playback.pause"));
}

void HalvoraPlayer::actionPrevious()
{
    post(QStringLiteral("core.playback.previous"));
}

void HalvoraPlayer::actionNext()
{
    post(QStringLiteral("core.playback.next"));
}

void HalvoraPlayer::actionRepeat()
{
    post(QStringLiteral("core.tracklist.set_repeat"), {{QStringLiteral("value"), !m_repeat}});
}

void HalvoraPlayer::actionShuffle()
{
    post(QStringLiteral("core.tracklist.set_random"), {{QStringLiteral("value"), !m_shuffle}});
}
