// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

/// Number of QObjects of this process that are alive, by the hooks that Qt keeps for debuggers. Counting begins at the
/// first call.
namespace ObjectCount {

int alive();

/// Number of timers that run for objects of this thread, of those that were made since the counting began. Those of other
/// threads, the link's among them, are not counted.
int timers();

/// Number of threads of this process.
int threads();

} // namespace ObjectCount
