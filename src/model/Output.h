// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "model/Source.h"

#include <QObject>
#include <QPointer>

/**
 * One output (zone) of the device, as the device last described it. Only Halvora writes it, from the device's
 * messages; screens bind to it and ask for changes through the actions of Halvora.
 *
 * Made by Halvora, without a parent, in the GUI thread. Halvora drops it at its own end; QML may
 * hold it longer.
 */
class Output : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int index READ index WRITE setIndex NOTIFY indexChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(int volume READ volume WRITE setVolume NOTIFY volumeChanged)
    Q_PROPERTY(bool mute READ mute WRITE setMute NOTIFY muteChanged)
    Q_PROPERTY(int bass READ bass WRITE setBass NOTIFY bassChanged)
    Q_PROPERTY(int middle READ middle WRITE setMiddle NOTIFY middleChanged)
    Q_PROPERTY(int treble READ treble WRITE setTreble NOTIFY trebleChanged)
    Q_PROPERTY(int loudness READ loudness WRITE setLoudness NOTIFY loudnessChanged)
    Q_PROPERTY(
        Source *selectedSource READ selectedSource WRITE setSelectedSource NOTIFY selectedSourceChanged)

public:
    explicit Output(QObject *parent = nullptr);

    /// The device's own number of the output, -1 by default. Not a position in a list.
    int index() const { return m_index; }
    void setIndex(int index);
    /// Name of the zone, "" by default.
    QString name() const { return m_name; }
    void setName(const QString &name);
    /// Volume, 0 by default; the range is the device's, the screens show 0 to 100.
    int volume() const { return m_volume; }
    void setVolume(int volume);
    /// Whether the output is silenced, false by default.
    bool mute() const { return m_mute; }
    void setMute(bool mute);
    /// Bass, 0 by default; the range is the device's, the screens show -20 to 20 (dB).
    int bass() const { return m_bass; }
    void setBass(int bass);
    /// Middle, like bass().
    int middle() const { return m_middle; }
    void setMiddle(int middle);
    /// Treble, like bass().
    int treble() const { return m_treble; }
    void setTreble(int treble);
    /// Loudness, like bass().
    int loudness() const { return m_loudness; }
    void setLoudness(int loudness);
    /// The source that is routed here; null for none, and once it has gone. Not owned.
    Source *selectedSource() const { return m_selectedSource; }
    void setSelectedSource(Source *selectedSource);

Q_SIGNALS:
    void indexChanged();
    void nameChanged();
    void volumeChanged();
    void muteChanged();
    void bassChanged();
    void middleChanged();
    void trebleChanged();
    void loudnessChanged();
    void selectedSourceChanged();

private:
    int m_index = -1;
    QString m_name;
    int m_volume = 0;
    bool m_mute = false;
    int m_bass = 0;
    int m_middle = 0;
    int m_treble = 0;
    int m_loudness = 0;
    QPointer<Source> m_selectedSource;
};
