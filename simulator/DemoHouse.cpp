// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/DemoHouse.h"

#include "simulator/MusicServerSimulator.h"

#include <QTimer>

namespace {

constexpr quint32 airPlayCover = 900003;
constexpr int pictureDelay = 2000; // milliseconds

const QStringList playlistNames{QStringLiteral("Morning Coffee"), QStringLiteral("Dinner with Friends"),
                                QStringLiteral("Summer Party"), QStringLiteral("Late Night"),
                                QStringLiteral("Focus")};

// What a player on AirPlay shows must be what its cover says.
void showAirPlay(SourceState &source)
{
    source.airPlay.album = Catalogue::coverTitle(airPlayCover);
    source.airPlay.artist = Catalogue::coverArtist(airPlayCover);
}

// All but the last slot, in the order of the playlists.
void fillPresets(DeviceState &state, const QVector<ShelfPlaylist> &playlists)
{
    for (int place = 0; place < qMin(state.playlistEntries.size() - 1, playlists.size()); ++place)
        state.playlistEntries[place].ref = playlists.at(place).uri;
}

// Ten songs from all over the library, and two things that are no songs.
QVector<CatalogueTrack> queueOf(const Catalogue &catalogue)
{
    constexpr int stride = 23;
    QVector<CatalogueTrack> queue;
    for (int place = 0; place < 10; ++place)
        queue << catalogue.track(place * stride % catalogue.trackCount());
    queue << catalogue.episode(0) << catalogue.station(0);
    return queue;
}

// Fewer of the zones, or more, which are numbered on and play nothing.
void resize(QVector<OutputState> *outputs, int wanted)
{
    int index = outputs->constLast().index;
    while (outputs->size() < wanted) {
        ++index;
        outputs->append({index, QStringLiteral("Zone %1").arg(index), 20, false, 0, 0, 0, 0, -1});
    }
    outputs->resize(wanted);
}

} // namespace

DemoHouse::DemoHouse(QObject *parent) : QObject(parent)
{
    followPlaylists();
    connect(&m_device, &DeviceSimulator::clientJoined, this, &DemoHouse::sendAirPlayPictures);
}

DemoHouse::~DemoHouse() = default;

void DemoHouse::setRealServer(const QString &host, quint16 port)
{
    m_realHost = host;
    m_realPort = QString::number(port);
}

void DemoHouse::setSize(int outputs, int tracks)
{
    m_outputs = outputs;
    m_tracks = tracks;
}

bool DemoHouse::start(quint16 devicePort)
{
    DeviceState state = DeviceState::demo();
    if (m_outputs > 0)
        resize(&state.outputs, m_outputs);
    if (!startArtwork() || !startMusicServers(state))
        return false;
    m_device.setState(state);
    if (!m_device.listen(devicePort))
        return fail(QStringLiteral("The device cannot listen on port %1").arg(devicePort),
                    m_device.errorString());
    return true;
}

bool DemoHouse::startArtwork()
{
    return m_artwork.listen()
        || fail(QStringLiteral("The artwork server cannot listen"), m_artwork.errorString());
}

bool DemoHouse::startMusicServers(DeviceState &state)
{
    bool isReal = !m_realHost.isEmpty();
    for (SourceState &source : state.sources) {
        if (!source.hasPlayer)
            continue;
        if (isReal) {
            source.address = m_realHost;
            source.port = m_realPort;
            isReal = false;
            continue;
        }
        const Catalogue music = m_tracks > 0 ? Catalogue(quint32(source.index), m_tracks)
                                             : Catalogue(quint32(source.index));
        auto *server = new MusicServerSimulator(music, this);
        m_musicServers.insert(source.index, server);
        if (!server->listen())
            return fail(QStringLiteral("The music server of %1 cannot listen").arg(source.name),
                        server->errorString());
        furnish(server, source.airPlay.on);
        source.port = QString::number(server->port());
        if (source.airPlay.on)
            showAirPlay(source);
    }
    if (!m_musicServers.isEmpty())
        fillPresets(state, m_musicServers.first()->playlists()->playlists());
    return true;
}

void DemoHouse::furnish(MusicServerSimulator *server, bool paused)
{
    const Catalogue &catalogue = server->catalogue();
    int first = 0;
    for (const QString &name : playlistNames) {
        QStringList uris;
        for (int place = 0; place < 8; ++place)
            uris << catalogue.track((first + place * 11) % catalogue.trackCount()).uri;
        server->playlists()->put(name, uris);
        ++first;
    }
    server->tracklist()->add(queueOf(catalogue));
    const int which = m_musicServers.size() % 3;
    server->playback()->play(server->tracklist()->entries().at(which).tlid);
    server->playback()->seek(38000 + which * 21000);
    if (paused)
        server->playback()->pause();
}

// As from a telephone, the picture comes some time after the texts.
void DemoHouse::sendAirPlayPictures()
{
    disconnect(&m_device, &DeviceSimulator::clientJoined, this, &DemoHouse::sendAirPlayPictures);
    QTimer::singleShot(pictureDelay, this, [this] {
        const DeviceState state = m_device.state();
        for (const SourceState &source : state.sources) {
            if (!source.airPlay.on)
                continue;
            AirPlayState airPlay = source.airPlay;
            airPlay.image = m_artwork.url(ArtworkServer::coverPath(airPlayCover, 640));
            m_device.setAirPlay(source.index, airPlay);
        }
    });
}

// The device only passes these wishes on; the playlist may be on any server.
void DemoHouse::followPlaylists()
{
    connect(&m_device, &DeviceSimulator::playlistRenameRequested, this,
            [this](const QString &uri, const QString &name) {
                for (MusicServerSimulator *server : qAsConst(m_musicServers))
                    server->playlists()->rename(uri, name);
            });
    connect(&m_device, &DeviceSimulator::playlistDeleteRequested, this, [this](const QString &uri) {
        for (MusicServerSimulator *server : qAsConst(m_musicServers))
            server->playlists()->remove(uri);
    });
}

bool DemoHouse::fail(const QString &what, const QString &reason)
{
    m_errorText = QStringLiteral("%1: %2.").arg(what, reason);
    return false;
}
