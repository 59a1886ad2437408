// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "simulator/MusicServerSimulator.h"

/**
 * Replies of the simulated music server that it keeps back until the test says what they are. From its making to its
 * end no request of those methods is answered; one at a time for a server.
 */
class HeldReplies final
{
public:
    /// Methods by their full names.
    HeldReplies(MusicServerSimulator *server, const QStringList &methods);
    ~HeldReplies();

    /// Waits until so many requests have come since the last answer; false if they never did.
    bool wait(int requests = 1) const;
    /// Answers what has come as it should be, or with `reply` in place of "result" or "error". Each reply goes out
    /// `copies` times. False if the client never took them.
    bool answer(const QJsonObject &reply = {}, int copies = 1);

    /// Waits until the client has taken all that was sent to it, and what it has asked for until now. False if it never
    /// does.
    static bool areTaken(MusicServerSimulator *server);

private:
    MusicServerSimulator *m_server;
    QStringList m_methods;
    QList<ReceivedRequest> m_held;
    QMetaObject::Connection m_connection;
};
