// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/HalvoraPlayer.h"

#include "player/ListProperty.h"
#include "player/PlayerTiming.h"
#include "player/Reclaimer.h"
#include "player/SocketHandler.h"

HalvoraPlayer::HalvoraPlayer(QObject *parent) : QObject(parent)
{
    for (QTimer *retry : {&m_dropRetry, &m_errorRetry}) {
        retry->setSingleShot(true);
        connect(retry, &QTimer::timeout, this, &HalvoraPlayer::startConnection);
    }
    m_completion.setSingleShot(true);
    connect(&m_completion, &QTimer::timeout, this, &HalvoraPlayer::completeSomeSongs);
}

HalvoraPlayer::~HalvoraPlayer()
{
    stopConnection();
    Reclaimer::drop(m_madeSong);
    Reclaimer::dropAll(m_queueMap.values());
    Reclaimer::dropAll(m_playlists);
}

QQmlListProperty<Song> HalvoraPlayer::queue()
{
    m_queueSnapshot = m_queueMap.values();
    return listProperty(this, &m_queueSnapshot);
}

QList<int> HalvoraPlayer::queueTlid() const
{
    return m_queueMap.keys();
}

QQmlListProperty<PlayerItem> HalvoraPlayer::playlists()
{
    return listProperty(this, &m_playlists);
}

void HalvoraPlayer::setIndex(int index)
{
    m_index = index;
    Q_EMIT indexChanged();
}

void HalvoraPlayer::setSourceRef(int sourceRef)
{
    m_sourceRef = sourceRef;
    Q_EMIT sourceRefChanged();
}

void HalvoraPlayer::setIpAddress(const QString &ipAddress)
{
    m_ipAddress = ipAddress;
    Q_EMIT ipAddressChanged();
}

void HalvoraPlayer::setPort(const QString &port)
{
    m_port = port;
    Q_EMIT portChanged();
}

void HalvoraPlayer::setPlayPause(int playPause)
{
    m_playPause = playPause;
    Q_EMIT playPauseChanged();
}

void HalvoraPlayer::setShuffle(bool shuffle)
{
    m_shuffle = shuffle;
    Q_EMIT shuffleChanged();
}

void HalvoraPlayer::setRepeat(bool repeat)
{
    m_repeat = repeat;
    Q_EMIT repeatChanged();
}

void HalvoraPlayer::setCurrentSong(Song *currentSong)
{
    m_currentSong = currentSong;
    Q_EMIT currentSongChanged();
}

void HalvoraPlayer::setCurrentTlid(int currentTlid)
{
    m_currentTlid = currentTlid;
    Q_EMIT currentTlidChanged();
}

void HalvoraPlayer::setAirPlay(bool airPlay)
{
    m_airPlay = airPlay;
    Q_EMIT airPlayChanged();
}

void HalvoraPlayer::setAirPlayTrack(const QString &airPlayTrack)
{
    m_airPlayTrack = airPlayTrack;
    Q_EMIT airPlayTrackChanged();
}

void HalvoraPlayer::setAirPlayAlbum(const QString &airPlayAlbum)
{
    m_airPlayAlbum = airPlayAlbum;
    Q_EMIT airPlayAlbumChanged();
}

void HalvoraPlayer::setAirPlayArtist(const QString &airPlayArtist)
{
    m_airPlayArtist = airPlayArtist;
    Q_EMIT airPlayArtistChanged();
}

void HalvoraPlayer::setAirPlayImage(const QString &airPlayImage)
{
    m_airPlayImage = airPlayImage;
    Q_EMIT airPlayImageChanged();
}

void HalvoraPlayer::setFilters(const QStringList &filters)
{
    m_filters = filters;
    Q_EMIT filtersChanged();
}

void HalvoraPlayer::setFilterTitles(const QStringList &filterTitles)
{
    m_filterTitles = filterTitles;
    Q_EMIT filterTitlesChanged();
}
