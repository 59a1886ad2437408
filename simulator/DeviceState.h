// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>
#include <QVector>

/**
 * What the simulated device knows of itself: plain values that may be copied, compared by hand and changed at
 * will. The indexes are the device's own numbers; they need neither start at 0 nor be without gaps. Texts
 * must hold neither "|" nor "@", as the link has no escaping; nothing here checks that.
 */

/// What AirPlay plays on a source. The texts are only sent while `on` is set.
struct AirPlayState
{
    bool on = false;
    QString track;
    QString album;
    QString artist;
    QString image; ///< address of the picture, complete with "http://"
};

/// One zone of the device.
struct OutputState
{
    int index = -1;
    QString name;
    int volume = 0; ///< 0 to 100
    bool mute = false;
    int bass = 0; ///< -20 to 20, as middle and treble
    int middle = 0;
    int treble = 0;
    int loudness = 0; ///< -20 to 20
    int source = -1;  ///< index of the source that is routed here, -1 for none
};

/// One source of the device.
struct SourceState
{
    int index = -1;
    QString name;
    bool hasPlayer = false;
    QString address;                       ///< host of the music server; read while `hasPlayer` is set
    QString port = QStringLiteral("6680"); ///< its port, as the text that is sent
    int volume = 0;                        ///< 0 to 100
    AirPlayState airPlay;                  ///< announced only for a source with a player
};

/// One preset slot for a playlist.
struct PlaylistEntryState
{
    int id = -1;
    QString name;
    QString ref; ///< uri of the playlist, empty while the slot is free
};

/// The whole device.
struct DeviceState
{
    int number = 1; ///< the device's own number, first field of each message it sends
    QVector<OutputState> outputs;
    QVector<SourceState> sources;
    QVector<PlaylistEntryState> playlistEntries;

    /// A house with six outputs (1, 2, 3, 5, 8, 9), four sources (2, 3, 5, 7; 7 has no player, 5 is on
    /// AirPlay) and four preset slots. The players' ports and the AirPlay picture are empty: whoever starts
    /// the servers fills them in.
    static DeviceState demo();

    /// The output or source of that index, null when there is none. Valid until the vectors change.
    OutputState *output(int index);
    SourceState *source(int index);
};
