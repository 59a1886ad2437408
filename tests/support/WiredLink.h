// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "link/Device.h"
#include "link/HalvoraConnThread.h"
#include "model/Halvora.h"
#include "simulator/DeviceSimulator.h"
#include "simulator/MusicServerSimulator.h"
#include "support/WiredClient.h"

#include <QPointer>
#include <QSet>

/**
 * The link and the device's model, in front of a device with three outputs and two sources. One of them may have a
 * music server, to which no fault comes.
 */
class WiredLink final : public WiredClient
{
    Q_OBJECT

public:
    /// `tick`: of the link's watchdog, in milliseconds.
    explicit WiredLink(int tick, bool withPlayer = true);

    int middleOfTheDump() const override;
    bool noticesSilence() const override { return true; }
    bool hasGivenUp() override { return m_unreachable > 0; }
    void start() override;
    void stop() override;
    void command(int number) override;
    void changePeer() override;
    void restartPeer() override;
    QStringList truth() override;
    QStringList mirror() override;
    int connectionsAtPeer() const override { return device.liveConnections(); }
    QString flaw() override;

    DeviceSimulator device;
    int dumps = 0; ///< whole ones that have arrived

private:
    void received(const QString &message);
    HalvoraPlayer *player() const { return m_model.sourceAt(2) ? m_model.sourceAt(2)->player() : nullptr; }

    MusicServerSimulator m_server;
    Device m_record;
    Halvora m_model;
    QSet<HalvoraPlayer *> m_players; // that the source with the server has had, under its right address
    int m_unreachable = 0;
    HalvoraConnThread m_link;
};
