// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "model/Output.h"

Output::Output(QObject *parent) : QObject(parent) { }

void Output::setIndex(int index)
{
    m_index = index;
    Q_EMIT indexChanged();
}

void Output::setName(const QString &name)
{
    m_name = name;
    Q_EMIT nameChanged();
}

void Output::setVolume(int volume)
{
    m_volume = volume;
    Q_EMIT volumeChanged();
}

void Output::setMute(bool mute)
{
    m_mute = mute;
    Q_EMIT muteChanged();
}

void Output::setBass(int bass)
{
    m_bass = bass;
    Q_EMIT bassChanged();
}

void Output::setMiddle(int middle)
{
    m_middle = middle;
    Q_EMIT middleChanged();
}

void Output::setTreble(int treble)
{
    m_treble = treble;
    Q_EMIT trebleChanged();
}

void Output::setLoudness(int loudness)
{
    m_loudness = loudness;
    Q_EMIT loudnessChanged();
}

void Output::setSelectedSource(Source *selectedSource)
{
    m_selectedSource = selectedSource;
    Q_EMIT selectedSourceChanged();
}
