// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

class Halvora;

/// Ends the process if the mirror of the device contradicts itself: lists out of order or with strangers in them, routes
/// to unknown sources, players of another source.
void requireSound(Halvora &halvora);
