// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/HalvoraPlayer.h"
#include "support/ClientWindow.h"

/**
 * The client in a window, on the player tab, used by mouse clicks. Its player's ticks are made by hand, so that a round
 * takes no minute. The peers that the window has of its own stand idle.
 */
class SoakedClient final
{
public:
    explicit SoakedClient(int devicePort);

    /// Goes to the player of the first output, once it plays this track, and opens the queue.
    bool openPlayer(const CatalogueTrack &first);

    /// A full poll, and what the server changes behind it, up to the frame that shows it. False if it did not end.
    bool round();
    /// Leaves the queue, walks into the library and back, and opens the playlists. False where a screen did not come.
    bool goToPlaylists();
    bool goToQueue(); ///< from there or from the player
    /// Frees what nothing shows any more, which else waits for QML's collector.
    void collectGarbage();

    HalvoraPlayer *player() const; ///< of the shown output; null before there is one

private:
    bool comesToRest(const QString &panel, bool open);

    ClientWindow m_client;
    QString m_album; ///< in the library
    int m_frames = 0;
};
