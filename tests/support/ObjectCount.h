// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

/// Number of QObjects of this process that are alive, by the hooks that Qt keeps for debuggers. Counting begins at the
/// first call.
namespace ObjectCount {

int alive();

/// Number of threads of this process.
int threads();

} // namespace ObjectCount
