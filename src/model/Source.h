// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/HalvoraPlayer.h"

#include <QObject>
#include <QPointer>

/**
 * One source of the device. Only Halvora writes it, from the device's messages.
 *
 * Made by Halvora, without a parent, in the GUI thread. Halvora drops it at its own end; QML may
 * hold it longer.
 */
class Source : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int index READ index WRITE setIndex NOTIFY indexChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(int volume READ volume WRITE setVolume NOTIFY volumeChanged)
    Q_PROPERTY(HalvoraPlayer *player READ player WRITE setPlayer NOTIFY playerChanged)

public:
    explicit Source(QObject *parent = nullptr);

    /// The device's own number of the source, -1 by default. Not a position in a list.
    int index() const { return m_index; }
    void setIndex(int index);
    /// Name of the source, "" by default.
    QString name() const { return m_name; }
    void setName(const QString &name);
    /// Volume, 0 by default; the range is the device's, the screens show 0 to 100.
    int volume() const { return m_volume; }
    void setVolume(int volume);
    /// The client of the music server behind the source; null for a source without one, and once it has gone.
    /// Each list of sources that the device sends brings a new player. Not owned.
    HalvoraPlayer *player() const { return m_player; }
    void setPlayer(HalvoraPlayer *player);

Q_SIGNALS:
    void indexChanged();
    void nameChanged();
    void volumeChanged();
    void playerChanged();

private:
    int m_index = -1;
    QString m_name;
    int m_volume = 0;
    QPointer<HalvoraPlayer> m_player;
};
