// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/Song.h"

Song::Song(QObject *parent) : PlayerItem(parent) { }

Song::Song(SongFields &&fields, QObject *parent)
    : PlayerItem(std::move(fields.uri), std::move(fields.name), parent),
      m_albumUri(std::move(fields.albumUri)),
      m_album(std::move(fields.album)),
      m_artistsUri(std::move(fields.artistsUri)),
      m_artists(std::move(fields.artists)),
      m_artistsString(std::move(fields.artistsString))
{
}

void Song::setDuration(int duration)
{
    m_duration = duration;
    Q_EMIT durationChanged();
}

void Song::setCurrTime(int currTime)
{
    m_currTime = currTime;
    Q_EMIT currTimeChanged();
}

void Song::setAlbumUri(const QString &albumUri)
{
    m_albumUri = albumUri;
    Q_EMIT albumUriChanged();
}

void Song::setAlbum(const QString &album)
{
    m_album = album;
    Q_EMIT albumChanged();
}

void Song::setArtistsUri(const QStringList &artistsUri)
{
    m_artistsUri = artistsUri;
    Q_EMIT artistsUriChanged();
}

void Song::setArtists(const QStringList &artists)
{
    m_artists = artists;
    Q_EMIT artistsChanged();
}

void Song::setArtistsString(const QString &artistsString)
{
    m_artistsString = artistsString;
    Q_EMIT artistsStringChanged();
}
