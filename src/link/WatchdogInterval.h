// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

/**
 * The length of the link's watchdog tick, in milliseconds: 1000 in the product. All of the link's time limits
 * count these ticks, so a test that has no ten seconds to wait shortens them here, and nobody else does.
 * Readable on any thread; a socket takes the value when it is made.
 */
namespace WatchdogInterval {

int milliseconds();
void shortenForTests(int milliseconds);

} // namespace WatchdogInterval
