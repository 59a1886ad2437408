// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "model/Source.h"

Source::Source(QObject *parent) : QObject(parent) { }

void Source::setIndex(int index)
{
    m_index = index;
    Q_EMIT indexChanged();
}

void Source::setName(const QString &name)
{
    m_name = name;
    Q_EMIT nameChanged();
}

void Source::setVolume(int volume)
{
    m_volume = volume;
    Q_EMIT volumeChanged();
}

void Source::setPlayer(HalvoraPlayer *player)
{
    m_player = player;
    Q_EMIT playerChanged();
}
