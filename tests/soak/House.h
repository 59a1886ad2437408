// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "simulator/DeviceSimulator.h"
#include "simulator/MusicServerSimulator.h"

/**
 * The peers of the soak, in a process of their own so that the client's memory is measured without theirs: a device
 * with two outputs and one source, whose music server holds 500 playlists and 500 queue entries and changes its queue
 * behind each full poll. Lives in the main thread; ends with its standard input.
 */
class House final : public QObject
{
    Q_OBJECT

public:
    House();
    bool start(); ///< and tells the device's port on standard output

private:
    void changeTheQueue();
    void obey(); ///< a line "sources" on standard input repeats the list of sources

    Catalogue m_music;
    MusicServerSimulator m_server;
    DeviceSimulator m_device;
    int m_changes = 0;
};
