// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>

/**
 * AES-128 in CBC mode (FIPS 197, SP 800-38A), as the device link uses it.
 *
 * Two plain functions without state between calls: the key schedule is expanded anew for each message and the
 * chaining starts from the given vector. Both are re-entrant and may be called on any thread.
 *
 * It is done by the processor's own instructions where there are some. Elsewhere it is done by lookup tables that are
 * indexed by secret bytes: the link's cipher keeps casual listeners off, and is no routine for protecting secrets
 * against a local attacker.
 */
namespace Aes128 {

constexpr int blockSize = 16; ///< bytes in a block, in the key and in the vector

/// Enciphers `data` under `key`, chained from `vector`. All three in bytes: `key` and `vector` have 16, `data` a
/// multiple of 16; anything else gives an empty array.
QByteArray encryptCbc(const QByteArray &data, const QByteArray &key, const QByteArray &vector);

/// The inverse of encryptCbc(), under the same rules. Padding is not looked at.
QByteArray decryptCbc(const QByteArray &data, const QByteArray &key, const QByteArray &vector);

/// Leaves the processor's own instructions aside, so that a test reaches the tables of processors without them.
void useTablesForTests(bool alone);

} // namespace Aes128
