// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>

#include <openssl/evp.h>

/// The link's cipher by OpenSSL, with a new context for each message, as the peer of our own routine. The algorithm is
/// looked up once for the process, as OpenSSL advises.
namespace OpenSsl {

enum Direction { Decipher = 0, Encipher = 1 };

inline const EVP_CIPHER *algorithm()
{
    static EVP_CIPHER *const fetched = EVP_CIPHER_fetch(nullptr, "AES-128-CBC", nullptr);
    return fetched;
}

/// AES-128-CBC; `padded` says whether the padding is added or taken away. Empty when OpenSSL refuses.
inline QByteArray cbc(Direction direction, const QByteArray &data, const QByteArray &key,
                      const QByteArray &vector, bool padded)
{
    EVP_CIPHER_CTX *context = EVP_CIPHER_CTX_new();
    QByteArray result(data.size() + EVP_MAX_BLOCK_LENGTH, Qt::Uninitialized);
    auto *out = reinterpret_cast<unsigned char *>(result.data());
    int length = 0;
    int rest = 0;
    const bool done = EVP_CipherInit_ex2(
                          context, algorithm(), reinterpret_cast<const unsigned char *>(key.constData()),
                          reinterpret_cast<const unsigned char *>(vector.constData()), direction, nullptr)
        && EVP_CIPHER_CTX_set_padding(context, padded ? 1 : 0)
        && EVP_CipherUpdate(context, out, &length, reinterpret_cast<const unsigned char *>(data.constData()),
                            data.size())
        && EVP_CipherFinal_ex(context, out + length, &rest);
    EVP_CIPHER_CTX_free(context);
    result.truncate(done ? length + rest : 0);
    return result;
}

} // namespace OpenSsl
