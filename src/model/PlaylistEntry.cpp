// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "model/PlaylistEntry.h"

PlaylistEntry::PlaylistEntry(QObject *parent) : QObject(parent) { }

void PlaylistEntry::setEntryId(int entryId)
{
    m_entryId = entryId;
    Q_EMIT entryIdChanged();
}

void PlaylistEntry::setName(const QString &name)
{
    m_name = name;
    Q_EMIT nameChanged();
}

void PlaylistEntry::setPlaylistRef(const QString &playlistRef)
{
    m_playlistRef = playlistRef;
    Q_EMIT playlistRefChanged();
}
