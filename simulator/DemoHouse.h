// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QMap>
#include <QObject>

#include "simulator/ArtworkServer.h"
#include "simulator/DeviceSimulator.h"

class MusicServerSimulator;

/**
 * A whole house to show the client with: the device, a music server for each of its players, each with its
 * own music, and the artwork of what is on AirPlay. All on 127.0.0.1, all owned by this object, on its
 * thread; nothing blocks, so it may live in a GUI thread. Needs a QGuiApplication.
 */
class DemoHouse final : public QObject
{
    Q_OBJECT

public:
    explicit DemoHouse(QObject *parent = nullptr);
    ~DemoHouse() override;

    /// Before start(): announces this server as the player of the first source, in place of a simulated one.
    /// Nothing checks that it is there. Neither text may hold "|" or "@".
    void setRealServer(const QString &host, quint16 port);

    /// Before start(): gives the device so many outputs, 1 to 64, and each simulated music server so many tracks, 1 to
    /// 1,000,000; 0, as at the start, leaves the demonstration's own number.
    void setSize(int outputs, int tracks);

    /// Starts everything, once; the device on `devicePort`, where 0 lets the system choose. False when a port
    /// cannot be had: errorText() says why, and the object is of no further use.
    bool start(quint16 devicePort = 0);
    QString errorText() const { return m_errorText; } ///< one sentence, empty while nothing went wrong

    QString deviceHost() const { return m_device.host(); }
    quint16 devicePort() const { return m_device.port(); } ///< 0 before start()

    DeviceSimulator *device() { return &m_device; }
    ArtworkServer *artwork() { return &m_artwork; }

    /// The simulated servers by the index of their source.
    const QMap<int, MusicServerSimulator *> &musicServers() const { return m_musicServers; }

private:
    bool startArtwork();
    bool startMusicServers(DeviceState &state);
    void furnish(MusicServerSimulator *server, bool paused);
    void followPlaylists();
    void sendAirPlayPictures();
    bool fail(const QString &what, const QString &reason);

    DeviceSimulator m_device;
    ArtworkServer m_artwork;
    QMap<int, MusicServerSimulator *> m_musicServers;
    int m_outputs = 0;
    int m_tracks = 0;
    QString m_realHost;
    QString m_realPort;
    QString m_errorText;
};
