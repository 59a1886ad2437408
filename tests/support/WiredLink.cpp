// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/WiredLink.h"

#include "link/FrameCodec.h"
#include "link/WatchdogInterval.h"
#include "player/PlayerTiming.h"
#include "support/Listed.h"
#include "support/OpenFiles.h"

#include <QtTest>

namespace {

QString yesNo(bool flag)
{
    return flag ? "yes"_s : "no"_s;
}

QString words(const QVector<int> &numbers)
{
    QString text;
    for (const int number : numbers)
        text += " %1"_s.arg(number);
    return text;
}

QString textOf(const OutputState &output)
{
    return "output "_s + output.name + " muted "_s + yesNo(output.mute)
        + words({output.index, output.volume, output.bass, output.middle, output.treble, output.loudness,
                 output.source});
}

QString textOf(Output *output)
{
    return "output "_s + output->name() + " muted "_s + yesNo(output->mute())
        + words({output->index(), output->volume(), output->bass(), output->middle(), output->treble(),
                 output->loudness(), output->selectedSource() ? output->selectedSource()->index() : -1});
}

QString textOf(const SourceState &source)
{
    const AirPlayState &airPlay = source.airPlay;
    QStringList texts{"source "_s + source.name + words({source.index, source.volume})};
    if (source.hasPlayer)
        texts << source.address << source.port << yesNo(airPlay.on);
    if (source.hasPlayer && airPlay.on)
        texts << airPlay.track << airPlay.album << airPlay.artist << airPlay.image;
    return texts.join(QLatin1Char('|'));
}

QString textOf(const Source *source)
{
    const HalvoraPlayer *player = source->player();
    QStringList texts{"source "_s + source->name() + words({source->index(), source->volume()})};
    if (player)
        texts << player->ipAddress() << player->port() << yesNo(player->airPlay());
    if (player && player->airPlay())
        texts << player->airPlayTrack() << player->airPlayAlbum() << player->airPlayArtist()
              << player->airPlayImage();
    return texts.join(QLatin1Char('|'));
}

QString slotText(int id, const QString &name, const QString &playlist)
{
    return "slot %1 %2 %3"_s.arg(id).arg(name, playlist);
}

DeviceState smallHouse()
{
    DeviceState state;
    state.outputs = {{3, u8"Küche"_s, 42, false, 4, 0, 2, 6, 2},
                     {7, "Hall"_s, 28, true, -3, 2, 0, 10, 9},
                     {12, "Attic"_s, 35, false, 0, -1, 3, 0, -1}};
    SourceState tuner;
    tuner.index = 9;
    tuner.name = "Tuner"_s;
    state.sources = {tuner, tuner};
    state.sources.first().index = 2;
    state.sources.first().airPlay = {true, "Title"_s, "Album"_s, "Artist"_s, "http://127.0.0.1/a.png"_s};
    state.playlistEntries = {{1, "Morning"_s, "m3u:a"_s}, {4, "Night"_s, {}}};
    return state;
}

} // namespace

WiredLink::WiredLink(int tick, bool withPlayer)
{
    WatchdogInterval::shortenForTests(tick);
    PlayerTiming::current() = PlayerTiming();
    DeviceState state = smallHouse();
    QVERIFY(device.listen() && m_server.listen() && relay.listen());
    relay.setTarget(device.port());
    if (withPlayer) {
        SourceState &source = state.sources.first();
        source.hasPlayer = true;
        source.address = m_server.host();
        source.port = QString::number(m_server.port());
    }
    device.setState(state);
    device.setPollInterval(3 * tick);
    m_record.setLocalIp(device.host());
    m_record.setLocalPort(relay.port());
    m_link.setDevice(&m_record);
    m_model.setConnPointer(&m_link);
    connect(&device, &DeviceSimulator::messageReceived, this, &WiredLink::received);
    connect(&m_model, &Halvora::sourcesChanged, this, [this] {
        if (player() && player()->port() == QString::number(m_server.port()))
            m_players.insert(player());
    });
    connect(&m_link, &HalvoraConnThread::setConnectionScreenMessage, this,
            [this](const QString &text) { m_unreachable += int(text.contains("not reachable"_s)); });
    connect(&m_link, &HalvoraConnThread::showConnectionScreen, this, [this](bool show) {
        dumps += int(!show);
        if (!show)
            m_unreachable = 0;
    });
}

// In the account of the outputs, which is the second: the frames ahead are the login's answer and the sources.
int WiredLink::middleOfTheDump() const
{
    const QString sources = DeviceMessages::text(1, DeviceMessages::sources(device.state()));
    return FrameCodec::encryptText("1|JOIN"_s).size() + FrameCodec::encryptText(sources).size() + 20;
}

void WiredLink::received(const QString &message)
{
    const QString numbered = device.numberedMessages().constLast();
    if (message.startsWith("CONNECT|"_s))
        expect(0);
    note(numbered.section(QLatin1Char('|'), 0, 0).toInt(), numbered);
    if (message.startsWith("UI_COMMAND|2"_s))
        noteCommand(message);
}

void WiredLink::start()
{
    m_link.restartLink();
    if (player())
        player()->startConnection();
}

void WiredLink::stop()
{
    m_link.stopLink();
    if (player())
        player()->stopConnection();
}

void WiredLink::command(int number)
{
    m_model.actionSetVolumeForOutput(number, 3);
}

void WiredLink::changePeer()
{
    device.setVolume(12, device.state().outputs.last().volume + 1);
    device.setRoute(7, device.state().outputs.at(1).source == 2 ? -1 : 2);
}

void WiredLink::restartPeer()
{
    DeviceState other = device.state();
    other.outputs.first() = {3, "Studio"_s, 1, true, 1, 2, 3, 4, -1};
    other.outputs.last().source = 2;
    other.sources.last().volume = 99;
    other.sources.first().name = "Server"_s;
    other.sources.first().airPlay = {};
    other.playlistEntries = {{8, "Late"_s, "m3u:z"_s}};
    device.setState(other);
}

QStringList WiredLink::truth()
{
    QStringList texts;
    for (const OutputState &output : device.state().outputs)
        texts << textOf(output);
    for (const SourceState &source : device.state().sources)
        texts << textOf(source);
    for (const PlaylistEntryState &entry : device.state().playlistEntries)
        texts << slotText(entry.id, entry.name, entry.ref);
    return texts;
}

QStringList WiredLink::mirror()
{
    QStringList texts;
    for (Output *output : listed(m_model.outputs()))
        texts << textOf(output);
    for (const Source *source : listed(m_model.sources()))
        texts << textOf(source);
    for (const PlaylistEntry *entry : listed(m_model.playlistEntries()))
        texts << slotText(entry->entryId(), entry->name(), entry->playlistRef());
    return texts;
}

// Every list of sources makes a new player, and an earlier one stays connected.
QString WiredLink::flaw()
{
    const int live = OpenFiles::socketsTo(m_server.port());
    if (live == m_players.size() && m_server.liveSockets() == live)
        return {};
    return "%1 players have %2 sockets, the music server has %3"_s.arg(m_players.size())
        .arg(live)
        .arg(m_server.liveSockets());
}
