// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QString>

/// One answer of the picture server, wrong lengths and all. A plain value.
struct HttpResponse
{
    QByteArray status = "200 OK";
    QByteArray contentType = "text/plain";
    QByteArray location; ///< for a redirect, empty otherwise
    QByteArray body;

    int announcedLength = -1; ///< -1: the body's own
    bool isEndless = false;   ///< repeats the body for ever, without an announced length
    bool closeAfter = false;  ///< ends the connection behind the body
    int bytesPerTick = 0;     ///< size of a piece every 10 ms, 0: all at once
    int delayMs = 0;

    /// The head with its empty line.
    QByteArray head() const;

    /// The status, type and size in words, on one line, for people to read.
    QString summary() const;
};
