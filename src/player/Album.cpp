// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/Album.h"

Album::Album(QObject *parent) : PlayerItem(parent) { }

void Album::setArtistsUri(const QStringList &artistsUri)
{
    m_artistsUri = artistsUri;
    Q_EMIT artistsUriChanged();
}

void Album::setArtists(const QStringList &artists)
{
    m_artists = artists;
    Q_EMIT artistsChanged();
}

void Album::setArtistsString(const QString &artistsString)
{
    m_artistsString = artistsString;
    Q_EMIT artistsStringChanged();
}
