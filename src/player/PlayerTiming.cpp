// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/PlayerTiming.h"

PlayerTiming &PlayerTiming::current()
{
    static PlayerTiming timing;
    return timing;
}
