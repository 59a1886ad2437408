// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/Aes128.h"

#include "link/AesInstructions.h"

#include <QtEndian>

#include <array>
#include <atomic>

namespace {

constexpr int rounds = 10;
constexpr int scheduleWords = 4 * (rounds + 1);

using Block = std::array<quint32, 4>; // the state, one column a word, first row in the high byte
using Schedule = std::array<quint32, scheduleWords>;

constexpr quint8 timesX(quint8 value)
{
    return quint8((value << 1) ^ ((value & 0x80) != 0 ? 0x1b : 0));
}

constexpr quint8 product(quint8 a, quint8 b)
{
    quint8 sum = 0;
    for (; b != 0; b >>= 1, a = timesX(a))
        sum ^= (b & 1) != 0 ? a : 0;
    return sum;
}

constexpr quint32 word(quint8 b0, quint8 b1, quint8 b2, quint8 b3)
{
    return (quint32(b0) << 24) | (quint32(b1) << 16) | (quint32(b2) << 8) | quint32(b3);
}

constexpr quint8 byteOf(quint32 value, int row)
{
    return quint8(value >> (24 - 8 * row));
}

constexpr quint32 rotated(quint32 value, int bits)
{
    return bits == 0 ? value : (value >> bits) | (value << (32 - bits));
}

// Substitution and column mixing joined in one lookup each way; the boxes are worked out by the compiler from
// the field's arithmetic, so there is no table of literals to mistype.
struct Tables
{
    std::array<quint8, 256> box{};
    std::array<quint8, 256> inverseBox{};
    std::array<std::array<quint32, 256>, 4> forward{};
    std::array<std::array<quint32, 256>, 4> backward{};
};

constexpr quint8 affine(quint8 value)
{
    quint8 result = 0x63;
    for (int turn = 0; turn < 5; ++turn)
        result ^= quint8((value << turn) | (value >> (8 - turn)));
    return result;
}

constexpr Tables makeTables()
{
    Tables t;
    quint8 p = 1; // walks the powers of 3, the generator of the field,
    quint8 q = 1; // while q walks their inverses
    do {
        p = quint8(p ^ timesX(p));
        q = product(q, 0xf6);
        t.box[p] = affine(q);
    } while (p != 1);
    t.box[0] = 0x63;
    for (int i = 0; i < 256; ++i)
        t.inverseBox[t.box[size_t(i)]] = quint8(i);
    for (int i = 0; i < 256; ++i) {
        const quint8 s = t.box[size_t(i)];
        const quint8 v = t.inverseBox[size_t(i)];
        const quint32 mixed = word(product(s, 2), s, s, product(s, 3));
        const quint32 unmixed = word(product(v, 14), product(v, 9), product(v, 13), product(v, 11));
        for (int row = 0; row < 4; ++row) {
            t.forward[size_t(row)][size_t(i)] = rotated(mixed, 8 * row);
            t.backward[size_t(row)][size_t(i)] = rotated(unmixed, 8 * row);
        }
    }
    return t;
}

constexpr Tables tables = makeTables();
static_assert(tables.box[0x53] == 0xed && tables.inverseBox[0xed] == 0x53, "the S-box of FIPS 197");

constexpr quint32 substituted(quint32 w)
{
    return word(tables.box[byteOf(w, 0)], tables.box[byteOf(w, 1)], tables.box[byteOf(w, 2)],
                tables.box[byteOf(w, 3)]);
}

inline Block load(const char *bytes)
{
    return {qFromBigEndian<quint32>(bytes), qFromBigEndian<quint32>(bytes + 4),
            qFromBigEndian<quint32>(bytes + 8), qFromBigEndian<quint32>(bytes + 12)};
}

inline void store(const Block &block, char *bytes)
{
    for (size_t i = 0; i < 4; ++i)
        qToBigEndian(block[i], bytes + 4 * i);
}

inline Block added(const Block &a, const Block &b)
{
    return {a[0] ^ b[0], a[1] ^ b[1], a[2] ^ b[2], a[3] ^ b[3]};
}

inline Block roundKey(const Schedule &schedule, int round)
{
    const size_t at = size_t(4 * round);
    return {schedule[at], schedule[at + 1], schedule[at + 2], schedule[at + 3]};
}

Schedule expanded(const QByteArray &key)
{
    const Block first = load(key.constData());
    Schedule schedule{first[0], first[1], first[2], first[3]};
    quint8 constant = 1;
    for (size_t i = 4; i < schedule.size(); ++i) {
        quint32 previous = schedule[i - 1];
        if (i % 4 == 0) {
            previous = substituted(rotated(previous, 24)) ^ word(constant, 0, 0, 0);
            constant = timesX(constant);
        }
        schedule[i] = schedule[i - 4] ^ previous;
    }
    return schedule;
}

// The key schedule of the equivalent inverse cipher: the rounds in reverse order, the inner ones with their
// columns unmixed, so that deciphering has the same shape as enciphering.
Schedule inverted(const Schedule &schedule)
{
    Schedule result{};
    for (int round = 0; round <= rounds; ++round) {
        for (int column = 0; column < 4; ++column) {
            quint32 w = schedule[size_t(4 * (rounds - round) + column)];
            if (round > 0 && round < rounds) {
                w = substituted(w);
                w = tables.backward[0][byteOf(w, 0)] ^ tables.backward[1][byteOf(w, 1)]
                    ^ tables.backward[2][byteOf(w, 2)] ^ tables.backward[3][byteOf(w, 3)];
            }
            result[size_t(4 * round + column)] = w;
        }
    }
    return result;
}

// One pass over a block. `Shift` is the column distance of the row shift: 1 to encipher, 3 to decipher.
template<size_t Shift>
Block transformed(Block state, const Schedule &schedule, const std::array<std::array<quint32, 256>, 4> &mix,
                  const std::array<quint8, 256> &box)
{
    state = added(state, roundKey(schedule, 0));
    for (int round = 1; round < rounds; ++round) {
        const Block key = roundKey(schedule, round);
        Block next{};
        for (size_t c = 0; c < 4; ++c) {
            next[c] = mix[0][byteOf(state[c], 0)] ^ mix[1][byteOf(state[(c + Shift) % 4], 1)]
                ^ mix[2][byteOf(state[(c + 2) % 4], 2)] ^ mix[3][byteOf(state[(c + 3 * Shift) % 4], 3)]
                ^ key[c];
        }
        state = next;
    }
    Block last{};
    for (size_t c = 0; c < 4; ++c) {
        last[c] = word(box[byteOf(state[c], 0)], box[byteOf(state[(c + Shift) % 4], 1)],
                       box[byteOf(state[(c + 2) % 4], 2)], box[byteOf(state[(c + 3 * Shift) % 4], 3)]);
    }
    return added(last, roundKey(schedule, rounds));
}

std::atomic<bool> byTablesAlone{false};

bool byInstructions()
{
    return AesInstructions::areThere() && !byTablesAlone;
}

bool wellFormed(const QByteArray &data, const QByteArray &key, const QByteArray &vector)
{
    return data.size() % Aes128::blockSize == 0 && key.size() == Aes128::blockSize
        && vector.size() == Aes128::blockSize;
}

} // namespace

QByteArray Aes128::encryptCbc(const QByteArray &data, const QByteArray &key, const QByteArray &vector)
{
    if (!wellFormed(data, key, vector))
        return {};
    const Schedule schedule = expanded(key);
    QByteArray result(data.size(), Qt::Uninitialized);
    if (byInstructions()) {
        AesInstructions::encryptCbc(schedule.data(), vector.constData(), data.constData(), result.data(),
                                    data.size() / blockSize);
        return result;
    }
    Block chain = load(vector.constData());
    for (int at = 0; at < data.size(); at += blockSize) {
        chain = transformed<1>(added(load(data.constData() + at), chain), schedule, tables.forward,
                               tables.box);
        store(chain, result.data() + at);
    }
    return result;
}

QByteArray Aes128::decryptCbc(const QByteArray &data, const QByteArray &key, const QByteArray &vector)
{
    if (!wellFormed(data, key, vector))
        return {};
    const Schedule forward = expanded(key);
    QByteArray result(data.size(), Qt::Uninitialized);
    if (byInstructions()) {
        AesInstructions::decryptCbc(forward.data(), vector.constData(), data.constData(), result.data(),
                                    data.size() / blockSize);
        return result;
    }
    const Schedule schedule = inverted(forward);
    Block chain = load(vector.constData());
    for (int at = 0; at < data.size(); at += blockSize) {
        const Block cipher = load(data.constData() + at);
        const Block plain = transformed<3>(cipher, schedule, tables.backward, tables.inverseBox);
        store(added(plain, chain), result.data() + at);
        chain = cipher;
    }
    return result;
}

void Aes128::useTablesForTests(bool alone)
{
    byTablesAlone = alone;
}
