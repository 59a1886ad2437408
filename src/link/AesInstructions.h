// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QtGlobal>

/// AES-128-CBC by the instructions that most processors of today have for it. Plain functions for any thread;
/// the result is the same as that of Aes128's own tables, in a sixth of the time. `schedule`: the 44 words of
/// the key schedule for enciphering, each with its first byte on top. `vector`: 16 bytes. Blocks are of 16
/// bytes; `to` may be `from`.
namespace AesInstructions {

/// Whether this processor has them; without them the two functions below must not be called.
bool areThere();

void encryptCbc(const quint32 *schedule, const char *vector, const char *from, char *to, int blocks);
void decryptCbc(const quint32 *schedule, const char *vector, const char *from, char *to, int blocks);

} // namespace AesInstructions
