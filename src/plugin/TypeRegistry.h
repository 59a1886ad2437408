// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

/// Registers every type of the library with QML, under the library's three modules, version 1.0.
void registerHalvoraTypes();
