// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

/**
 * What the picture server does wrong. All off by default; a change holds from the next request on.
 */
struct ArtworkFaults
{
    QString onlyPath; ///< concerns paths that contain this text; empty: all

    bool notFound = false;      ///< answers 404
    bool noPicture = false;     ///< answers 200 with a body that is no picture, under a picture's type
    bool truncatedBody = false; ///< announces the whole length, sends half and closes
    int lengthLie = 0; ///< bytes added to the announced length (may be negative); closes after the body
    bool hugeDimensions = false; ///< a PNG that claims to be 20000 by 20000 pixels
    bool endlessBody = false;    ///< announces no length and sends until the client goes away
    int slowBytesPerTick = 0;    ///< sends the body in pieces of this size, every 10 ms; 0: at once
    int delayMs = 0;             ///< answers this late
    QString redirectTo;          ///< answers 302 to this address; empty: no redirect

    bool concern(const QString &path) const { return onlyPath.isEmpty() || path.contains(onlyPath); }
};
