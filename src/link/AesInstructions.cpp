// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/AesInstructions.h"

#if defined(Q_PROCESSOR_X86) && (defined(Q_CC_GNU) || defined(Q_CC_CLANG))

#include <immintrin.h>

#define HALVORA_WITH_AES __attribute__((target("aes,ssse3")))

namespace {

constexpr int rounds = 10;

struct Keys
{
    __m128i round[rounds + 1];
};

HALVORA_WITH_AES inline __m128i load(const void *bytes)
{
    return _mm_loadu_si128(static_cast<const __m128i *>(bytes));
}

HALVORA_WITH_AES inline void store(char *bytes, __m128i block)
{
    _mm_storeu_si128(reinterpret_cast<__m128i *>(bytes), block);
}

// The words of the schedule have their first byte on top, the instructions want it in front.
HALVORA_WITH_AES Keys forward(const quint32 *schedule)
{
    const __m128i order = _mm_set_epi8(12, 13, 14, 15, 8, 9, 10, 11, 4, 5, 6, 7, 0, 1, 2, 3);
    Keys keys;
    for (int i = 0; i <= rounds; ++i)
        keys.round[i] = _mm_shuffle_epi8(load(schedule + 4 * i), order);
    return keys;
}

// The equivalent inverse cipher: the rounds in reverse order, the inner ones unmixed.
HALVORA_WITH_AES Keys backward(const quint32 *schedule)
{
    const Keys ahead = forward(schedule);
    Keys keys;
    keys.round[0] = ahead.round[rounds];
    for (int i = 1; i < rounds; ++i)
        keys.round[i] = _mm_aesimc_si128(ahead.round[rounds - i]);
    keys.round[rounds] = ahead.round[0];
    return keys;
}

} // namespace

bool AesInstructions::areThere()
{
    static const bool there = __builtin_cpu_supports("aes") && __builtin_cpu_supports("ssse3");
    return there;
}

HALVORA_WITH_AES void AesInstructions::encryptCbc(const quint32 *schedule, const char *vector,
                                                  const char *from, char *to, int blocks)
{
    const Keys keys = forward(schedule);
    __m128i chain = load(vector);
    for (int block = 0; block < blocks; ++block, from += 16, to += 16) {
        chain = _mm_xor_si128(_mm_xor_si128(chain, load(from)), keys.round[0]);
        for (int i = 1; i < rounds; ++i)
            chain = _mm_aesenc_si128(chain, keys.round[i]);
        chain = _mm_aesenclast_si128(chain, keys.round[rounds]);
        store(to, chain);
    }
}

HALVORA_WITH_AES void AesInstructions::decryptCbc(const quint32 *schedule, const char *vector,
                                                  const char *from, char *to, int blocks)
{
    const Keys keys = backward(schedule);
    __m128i chain = load(vector);
    for (int block = 0; block < blocks; ++block, from += 16, to += 16) {
        const __m128i cipher = load(from);
        __m128i plain = _mm_xor_si128(cipher, keys.round[0]);
        for (int i = 1; i < rounds; ++i)
            plain = _mm_aesdec_si128(plain, keys.round[i]);
        store(to, _mm_xor_si128(_mm_aesdeclast_si128(plain, keys.round[rounds]), chain));
        chain = cipher;
    }
}

#else

bool AesInstructions::areThere()
{
    return false;
}

void AesInstructions::encryptCbc(const quint32 *, const char *, const char *, char *, int) { }

void AesInstructions::decryptCbc(const quint32 *, const char *, const char *, char *, int) { }

#endif
