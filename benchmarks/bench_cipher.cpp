// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Measurement.h"
#include "OpenSsl.h"

#include "link/Aes128.h"

// bench_cipher ours|peer [BYTES]: one message enciphered and deciphered, by the link's routine or by OpenSSL.

namespace {

constexpr int messages = 1000; // in a turn

const QByteArray key = QByteArrayLiteral("7391058264610275");
const QByteArray vector(Aes128::blockSize, '\0');

QByteArray byOurs(const QByteArray &plain)
{
    return Aes128::decryptCbc(Aes128::encryptCbc(plain, key, vector), key, vector);
}

QByteArray byPeer(const QByteArray &plain)
{
    return OpenSsl::cbc(OpenSsl::Decipher, OpenSsl::cbc(OpenSsl::Encipher, plain, key, vector, false), key,
                        vector, false);
}

QByteArray message(int bytes)
{
    QByteArray text(bytes, Qt::Uninitialized);
    for (int i = 0; i < bytes; ++i)
        text[i] = char('!' + i % 90);
    return text;
}

} // namespace

int main(int argc, char **argv)
{
    const Measurement::Call call(argc, argv);
    const int bytes = call.number(1, 64);
    const QByteArray plain = message(bytes);
    if (Aes128::encryptCbc(plain, key, vector) != OpenSsl::cbc(OpenSsl::Encipher, plain, key, vector, false))
        qFatal("the two ciphers do not agree");
    const auto roundTrip = call.isPeer() ? byPeer : byOurs;
    const double seconds = Measurement::medianOfTurns([&] {
        bool same = true;
        const double elapsed = Measurement::timed([&] {
            for (int i = 0; i < messages; ++i)
                same = roundTrip(plain) == plain && same;
        });
        if (!same)
            qFatal("the message has changed");
        return elapsed;
    });
    call.report("cipher-" + QByteArray::number(bytes), seconds / messages * 1e9, "ns");
    return 0;
}
