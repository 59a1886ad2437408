// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QElapsedTimer>
#include <QJsonObject>
#include <QObject>
#include <QTimer>

#include "simulator/Tracklist.h"

/**
 * The playing side of the simulated music server: what plays, since when, and what comes next. Owned by the
 * MusicServerSimulator, lives on its thread, works on the server's tracklist without owning it.
 *
 * Time really passes while it plays, and the next entry starts by itself. All that happens is reported as the
 * server's own events, in the server's order. The current track stays known after a stop, as on the server.
 */
class Playback final : public QObject
{
    Q_OBJECT

public:
    enum class State { Stopped, Paused, Playing };

    Playback(Tracklist *tracklist, QObject *parent);

    State state() const { return m_state; }
    QString stateName() const;                         ///< "stopped", "paused" or "playing"
    int currentTlid() const { return m_current.tlid; } ///< 0 when there is no current track
    const TracklistEntry &current() const { return m_current; }
    qint64 timePosition() const; ///< milliseconds; 0 when stopped

    /// Plays this entry; 0: what is paused goes on, otherwise the current or the first one starts. An unknown
    /// tlid counts as 0.
    void play(int tlid = 0);
    void pause();  ///< from any state, as the server does
    void resume(); ///< does nothing unless a track is paused
    void stop();
    void next();                ///< at the end of the list it stops
    void previous();            ///< at the start of the list it stops
    bool seek(qint64 position); ///< milliseconds, past the end: next(); false when nothing is current

    /// What a radio station says is on; empty for nothing. Each call is an event.
    void setStreamTitle(const QString &title);
    QString streamTitle() const { return m_streamTitle; }

    /// Lets time pass `scale` times as fast; 1 at the start, must be positive.
    void setTimeScale(double scale);

Q_SIGNALS:
    /// An event as clients see it; `fields` without the name.
    void eventRaised(const QString &name, const QJsonObject &fields);

private:
    void begin(int tlid, State state);
    void moveTo(int tlid);
    void endOfTrack();
    void endOfStream();
    void forgetCurrent();
    void tracklistChanged();
    void setState(State state);
    void raise(const QString &what, qint64 position = -1);
    void restartClock(qint64 position);
    void stopClock(qint64 position);

    Tracklist *m_tracklist;
    State m_state = State::Stopped;
    TracklistEntry m_current;
    QString m_streamTitle;
    QElapsedTimer m_clock;
    qint64 m_position = 0; ///< when the clock was started, or while it rests
    double m_scale = 1;
    QTimer m_trackEnd;
};
