// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QHash>
#include <QJsonValue>
#include <QStringList>

/**
 * What the simulated music server does wrong with requests. All off by default; a change holds from the next
 * request on. A request that is answered wrongly has been carried out all the same, unless told otherwise.
 */
struct ServerFaults
{
    /// The methods concerned by the flags below, by full name, and for spoilField the events; empty: all of them.
    QStringList methods;

    bool noReply = false;     ///< says nothing
    bool errorReply = false;  ///< an error in place of the result; the request is not carried out
    bool doubleReply = false; ///< every reply twice
    bool replyNoJson = false; ///< a text that is no JSON in place of the reply
    int dropAtRequest =
        -1;               ///< ends the connection over the request of this number (0: the next); counts down
    int replyDelayMs = 0; ///< replies this late; events are not delayed

    /// Replaces one value in the next reply or event: the field of this number, as JsonSpoiler counts them, by
    /// `spoilWith`. A number beyond the last leaves the message whole. Falls back to -1, none, with that message.
    int spoilField = -1;
    QJsonValue spoilWith;

    /// The events of a request arrive before its reply; otherwise right behind it. The real server does both.
    bool eventsFirst = false;

    /// What stands in place of the "result" of a method, by its full name, whatever `methods` says.
    QHash<QString, QJsonValue> results;

    bool concern(const QString &method) const { return methods.isEmpty() || methods.contains(method); }
};
