// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

/// Counts what Qt, QML and the client warn of or call critical, in any thread; all of it is shown as ever.
namespace WarningCount {

/// Counts from now on, to the end of the process. Once.
void begin();

int soFar();

} // namespace WarningCount
