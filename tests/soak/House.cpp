// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "soak/House.h"

#include "support/Text.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTextStream>

#include <unistd.h>

namespace {

constexpr int entries = 500;
constexpr int playlists = 500;
constexpr int trackCount =
    60; // of 6 albums, whose pictures are all in the cache of the client before the first tenth

} // namespace

House::House() : m_music(1, trackCount), m_server(m_music)
{
    QVector<CatalogueTrack> queue;
    for (int position = 0; position < entries; ++position)
        queue.append(m_music.track(position % trackCount));
    m_server.tracklist()->add(queue);
    for (int number = 0; number < playlists; ++number)
        m_server.playlists()->put("Playlist %1"_s.arg(number), {m_music.track(number % trackCount).uri});
    m_server.playback()->play();
    connect(&m_server, &MusicServerSimulator::requestReceived, this, [this](const QString &method) {
        if (method == "core.playlists.as_list"_s) // the last of a full poll
            QMetaObject::invokeMethod(this, &House::changeTheQueue, Qt::QueuedConnection);
    });
}

bool House::start()
{
    if (!m_server.listen() || !m_device.listen())
        return false;
    SourceState music;
    music.index = 2;
    music.name = "Music"_s;
    music.hasPlayer = true;
    music.address = m_server.host();
    music.port = QString::number(m_server.port());
    DeviceState state;
    state.outputs = {{3, "Terrace"_s, 40, false, 0, 0, 0, 0, 2}, {7, "Bath"_s, 20, false, 0, 0, 0, 0, 2}};
    state.sources = {music};
    m_device.setState(state);
    QTextStream(stdout) << m_device.port() << Qt::endl;
    auto *input = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(input, &QSocketNotifier::activated, this, &House::obey);
    return true;
}

// Each poll another song plays, and an entry comes or goes.
void House::changeTheQueue()
{
    Tracklist *queue = m_server.tracklist();
    if (queue->entries().size() > entries)
        queue->remove({queue->entries().at(entries / 2).tlid});
    else
        queue->add({m_music.track(m_changes * 7 % trackCount)});
    m_server.playback()->play(queue->entries().at(m_changes % entries).tlid);
    ++m_changes;
    // The records of the peers would make them slow in the end.
    m_server.clearRequests();
    m_server.artwork()->clearRequests();
    m_device.clearReceived();
}

void House::obey()
{
    char line[64];
    const auto length = read(STDIN_FILENO, line, sizeof line);
    if (length <= 0)
        QCoreApplication::quit();
    else if (QByteArray(line, int(length)).startsWith("sources"))
        m_device.setSources(m_device.state().sources);
}
