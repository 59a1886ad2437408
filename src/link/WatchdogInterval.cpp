// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/WatchdogInterval.h"

#include <atomic>

namespace {
std::atomic<int> interval{1000};
}

int WatchdogInterval::milliseconds()
{
    return interval;
}

void WatchdogInterval::shortenForTests(int milliseconds)
{
    interval = milliseconds;
}
