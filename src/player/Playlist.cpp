// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/Playlist.h"

Playlist::Playlist(QObject *parent) : QObject(parent) { }

void Playlist::setUri(const QString &uri)
{
    m_uri = uri;
    Q_EMIT uriChanged();
}

void Playlist::setName(const QString &name)
{
    m_name = name;
    Q_EMIT nameChanged();
}
