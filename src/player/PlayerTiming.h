// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

/**
 * The times by which a HalvoraPlayer lives, in milliseconds. Tests that have no seconds to wait shorten them here;
 * nobody else does. GUI thread only; a running timer keeps the interval that it was started with.
 */
struct PlayerTiming
{
    int tick = 1000;       ///< position poll, and the unit of the full poll
    int dropRetry = 500;   ///< from the loss of a live connection to the next attempt
    int errorRetry = 1000; ///< from any socket error to the next attempt

    static PlayerTiming &current();
};
