// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "ServerLife.h"

#include "simulator/Catalogue.h"
#include "simulator/DeviceSimulator.h"
#include "simulator/MusicServerSimulator.h"

#include <QGuiApplication>

// busy_house: a device with eight outputs and eight sources, each with a music server that plays one track
// that ends after the measurement. Writes the device's port; then, for each line of standard input, how many
// of the players have asked for their position since the one before. Ends with its standard input, after ten
// minutes at the latest.

namespace {

constexpr int players = 8;
QList<MusicServerSimulator *> startPlaying(QObject *parent, DeviceState *state)
{
    QList<MusicServerSimulator *> servers;
    for (int i = 0; i < players; ++i) {
        auto *server = new MusicServerSimulator(Catalogue(quint32(i + 1)), parent);
        if (!server->listen())
            qFatal("no port to listen on");
        CatalogueTrack track = server->catalogue().track(i);
        track.lengthMs = ServerLife::longest;
        server->tracklist()->add({track});
        server->playback()->play();
        SourceState source;
        source.index = i;
        source.name = QStringLiteral("Player %1").arg(i);
        source.hasPlayer = true;
        source.address = server->host();
        source.port = QString::number(server->port());
        state->sources.append(source);
        state->outputs.append({i, QStringLiteral("Zone %1").arg(i), 30, false, 0, 0, 0, 0, i});
        servers.append(server);
    }
    return servers;
}

int askers(const QList<MusicServerSimulator *> &servers)
{
    int asking = 0;
    for (MusicServerSimulator *server : servers) {
        asking += server->requestCount(QStringLiteral("core.playback.get_time_position")) > 0 ? 1 : 0;
        server->clearRequests();
    }
    return asking;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    DeviceState state;
    const QList<MusicServerSimulator *> servers = startPlaying(&application, &state);
    DeviceSimulator device;
    device.setState(state);
    if (!device.listen())
        qFatal("no port to listen on");
    ServerLife::tell(device.port());
    return ServerLife::run([&] { ServerLife::tell(askers(servers)); });
}
