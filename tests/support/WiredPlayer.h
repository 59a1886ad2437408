// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/HalvoraPlayer.h"
#include "simulator/MusicServerSimulator.h"
#include "support/WiredClient.h"

#include <memory>

/**
 * A player in front of a music server that has something in its queue.
 */
class WiredPlayer final : public WiredClient
{
    Q_OBJECT

public:
    /// `tick` and `retry`, the shorter of the two delays before a new attempt: milliseconds.
    WiredPlayer(int tick, int retry);

    int middleOfTheDump() const override { return 700; } // the answer to the handshake has less than 200
    bool noticesSilence() const override { return false; }
    bool hasGivenUp() override;
    int sentBesidePolls() override;
    void start() override { m_player.startConnection(); }
    void stop() override { m_player.stopConnection(); }
    void command(int number) override;
    void changePeer() override;
    void restartPeer() override { openServer(); }
    QStringList truth() override;
    QStringList mirror() override { return mirrorOf(&m_player); }
    int connectionsAtPeer() const override { return m_server->liveSockets(); }

    static QStringList mirrorOf(HalvoraPlayer *player);

    int connections = 0; ///< that the server has taken

private:
    void openServer();
    void received(const QString &method);

    std::unique_ptr<MusicServerSimulator> m_server;
    HalvoraPlayer m_player;
    int m_lastId = -1;
    int m_attempts = 0;
    int m_asked = 0;
    quint32 m_seed = 0;
};
