// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/Playback.h"

#include <algorithm>

#include "simulator/MopidyModels.h"

namespace {

QString nameOf(Playback::State state)
{
    switch (state) {
    case Playback::State::Playing:
        return QStringLiteral("playing");
    case Playback::State::Paused:
        return QStringLiteral("paused");
    case Playback::State::Stopped:
        break;
    }
    return QStringLiteral("stopped");
}

} // namespace

Playback::Playback(Tracklist *tracklist, QObject *parent) : QObject(parent), m_tracklist(tracklist)
{
    m_trackEnd.setSingleShot(true);
    connect(&m_trackEnd, &QTimer::timeout, this, &Playback::endOfTrack);
    connect(m_tracklist, &Tracklist::changed, this, &Playback::tracklistChanged);
}

QString Playback::stateName() const
{
    return nameOf(m_state);
}

qint64 Playback::timePosition() const
{
    if (m_state == State::Stopped)
        return 0;
    if (!m_clock.isValid())
        return m_position;
    const qint64 now = m_position + qint64(double(m_clock.elapsed()) * m_scale);
    const int length = m_current.track.lengthMs;
    return length > 0 ? std::min<qint64>(now, length) : now;
}

void Playback::play(int tlid)
{
    int wanted = m_tracklist->entry(tlid) ? tlid : 0;
    if (wanted == 0 && m_state == State::Paused) {
        resume();
        return;
    }
    if (wanted == 0)
        wanted = m_current.tlid != 0 ? m_current.tlid : m_tracklist->following(0);
    if (wanted != 0)
        begin(wanted, State::Playing);
}

void Playback::pause()
{
    stopClock(timePosition());
    setState(State::Paused);
    raise(QStringLiteral("paused"), m_position);
}

void Playback::resume()
{
    if (m_state != State::Paused || m_current.tlid == 0)
        return;
    setState(State::Playing);
    restartClock(m_position);
    raise(QStringLiteral("resumed"), m_position);
}

// That the track has ended is only reported when the next one begins.
void Playback::stop()
{
    if (m_state == State::Stopped)
        return;
    stopClock(0);
    setState(State::Stopped);
    m_streamTitle.clear();
}

void Playback::next()
{
    moveTo(m_tracklist->following(m_current.tlid));
}

void Playback::previous()
{
    moveTo(m_tracklist->preceding(m_current.tlid));
}

bool Playback::seek(qint64 position)
{
    if (m_current.tlid == 0)
        return false;
    if (m_state == State::Stopped)
        play();
    const int length = m_current.track.lengthMs;
    if (length > 0 && position > length) {
        next();
        return true;
    }
    if (m_state == State::Playing)
        restartClock(std::max<qint64>(0, position));
    else
        stopClock(std::max<qint64>(0, position));
    Q_EMIT eventRaised(QStringLiteral("seeked"), {{QStringLiteral("time_position"), m_position}});
    return true;
}

void Playback::setStreamTitle(const QString &title)
{
    m_streamTitle = title;
    Q_EMIT eventRaised(QStringLiteral("stream_title_changed"), {{QStringLiteral("title"), title}});
}

void Playback::setTimeScale(double scale)
{
    const qint64 position = timePosition();
    m_scale = scale;
    if (m_state == State::Playing)
        restartClock(position);
}

// Leaves the current entry and takes another one up from its start. What is to be paused plays for a moment,
// and clients hear of it.
void Playback::begin(int tlid, State state)
{
    raise(QStringLiteral("ended"), timePosition());
    m_streamTitle.clear();
    m_current = *m_tracklist->entry(tlid);
    setState(State::Playing);
    restartClock(0);
    raise(QStringLiteral("started"));
    if (state == State::Paused)
        pause();
}

// A skip by hand: what was paused stays so, what was stopped merely points at another entry.
void Playback::moveTo(int tlid)
{
    if (tlid == 0) {
        stop();
        endOfStream();
    } else if (m_state == State::Stopped) {
        m_current = *m_tracklist->entry(tlid);
    } else {
        begin(tlid, m_state);
    }
}

void Playback::endOfTrack()
{
    const int next = m_tracklist->following(m_current.tlid);
    if (next == 0)
        endOfStream();
    else
        begin(next, State::Playing);
}

void Playback::endOfStream()
{
    const qint64 reached = timePosition();
    stopClock(0);
    setState(State::Stopped);
    raise(QStringLiteral("ended"), reached);
    forgetCurrent();
}

void Playback::forgetCurrent()
{
    m_current = {};
    m_trackEnd.stop();
}

// The server keeps its state when the playing entry is taken away from under it, but not when the list is
// empty.
void Playback::tracklistChanged()
{
    if (m_tracklist->entries().isEmpty())
        stop();
    if (!m_tracklist->entry(m_current.tlid))
        forgetCurrent();
}

// Reported even when it stays the same, as the server does.
void Playback::setState(State state)
{
    const State before = m_state;
    m_state = state;
    Q_EMIT eventRaised(
        QStringLiteral("playback_state_changed"),
        {{QStringLiteral("old_state"), nameOf(before)}, {QStringLiteral("new_state"), nameOf(state)}});
}

void Playback::raise(const QString &what, qint64 position)
{
    if (m_current.tlid == 0)
        return;
    QJsonObject fields{{QStringLiteral("tl_track"), MopidyModels::tlTrack(m_current.tlid, m_current.track)}};
    if (position >= 0)
        fields.insert(QStringLiteral("time_position"), position);
    Q_EMIT eventRaised(QStringLiteral("track_playback_") + what, fields);
}

void Playback::restartClock(qint64 position)
{
    m_position = position;
    m_clock.start();
    m_trackEnd.stop();
    const int length = m_current.track.lengthMs;
    if (length > 0)
        m_trackEnd.start(int(double(std::max<qint64>(0, length - position)) / m_scale));
}

void Playback::stopClock(qint64 position)
{
    m_position = position;
    m_clock.invalidate();
    m_trackEnd.stop();
}
