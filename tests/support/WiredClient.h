// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "simulator/WireRelay.h"
#include "support/Text.h"

#include <QStringList>

/**
 * A part of the client and its simulated peer, with a wire between them that a test can spoil. What has reached the peer
 * is recorded and checked as it comes.
 */
class WiredClient : public QObject
{
    Q_OBJECT

public:
    /// A place well inside the peer's first account of its state: bytes from the start of a connection.
    virtual int middleOfTheDump() const = 0;
    /// Whether a peer that hangs is given up without help from the network.
    virtual bool noticesSilence() const = 0;
    /// Whether the client has tried again in vain since it was connected. Asked again and again, as it may itself ask.
    virtual bool hasGivenUp() = 0;
    /// Of one that does not notice silence: a figure that stays as it is while it sends nothing but whole polls.
    virtual int sentBesidePolls() { return 0; }

    virtual void start() = 0;
    virtual void stop() = 0;
    virtual void command(int number) = 0; ///< no two look alike
    virtual void changePeer() = 0;        ///< its state, by itself
    virtual void restartPeer() = 0; ///< it has another state when it is back; connections must have ended

    /// The peer's state and what the client shows of it, line by line.
    virtual QStringList truth() = 0;
    virtual QStringList mirror() = 0;
    /// Connections that the peer itself counts.
    virtual int connectionsAtPeer() const = 0;
    /// What else is wrong with the connections; empty when nothing is.
    virtual QString flaw() { return {}; }

    WireRelay relay;
    QStringList commands;   ///< that have reached the peer, each as often as it came
    QStringList misordered; ///< messages whose number does not follow the one before

Q_SIGNALS:
    void commandArrived(); ///< the peer has not acted on it yet

protected:
    /// The next message has this number; -1: whatever it has is right.
    void expect(int number) { m_expected = number; }
    void note(int number, const QString &message)
    {
        if (m_expected >= 0 && number != m_expected)
            misordered.append("%1 in place of %2: "_s.arg(number).arg(m_expected) + message);
        m_expected = number + 1;
    }
    void noteCommand(const QString &text)
    {
        commands.append(text);
        Q_EMIT commandArrived();
    }

private:
    int m_expected = 0;
};
