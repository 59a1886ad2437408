// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "link/HalvoraConnection.h"

#include <QByteArray>
#include <QStringList>

class HalvoraConnSocket;

/**
 * A connection of the client with its socket at one end of a pair, and this, in the place of the device, at the other:
 * bytes come to the client as from the network. For one run, in the fuzzer's thread.
 */
class DevicePeer final
{
public:
    DevicePeer();
    ~DevicePeer();

    /// Tells the client that it is connected.
    void open();
    /// What the client reads at once.
    void say(const QByteArray &bytes);
    /// `message` as the device sends it, enciphered and with its terminator.
    void sayMessage(const QString &message);
    /// What the client has sent since the last call, deciphered and without its numbers. Ends the process if those do
    /// not count on, or if anything is no whole frame.
    QStringList heard();
    /// Whether the client has closed the connection because it took something for a refusal.
    bool isRefused() const { return m_refused; }

    HalvoraConnection client{QStringLiteral("device"), 20000};

private:
    HalvoraConnSocket *m_socket = nullptr; // of the client
    int m_end = -1;
    int m_frames = 0;
    bool m_refused = false;
};
