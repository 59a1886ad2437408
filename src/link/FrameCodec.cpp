// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/FrameCodec.h"

#include "link/Aes128.h"

namespace {

QByteArray linkKey()
{
    return QByteArrayLiteral("7391058264610275");
}

// Both sides start every frame here, so that each can be read without the one before.
QByteArray zeroVector()
{
    return QByteArray(Aes128::blockSize, '\0');
}

QByteArray untilNul(QByteArray bytes)
{
    const int nul = bytes.indexOf('\0');
    if (nul >= 0)
        bytes.truncate(nul);
    return bytes;
}

} // namespace

QByteArray FrameCodec::encryptText(const QString &text)
{
    QByteArray plain = untilNul(text.toUtf8());
    const int padding = Aes128::blockSize - plain.size() % Aes128::blockSize;
    plain.append(padding, char(padding));
    return Aes128::encryptCbc(plain, linkKey(), zeroVector()).toBase64();
}

QString FrameCodec::decryptText(const QByteArray &armoured)
{
    const QByteArray cipher = QByteArray::fromBase64(untilNul(armoured));
    return QString::fromUtf8(untilNul(withoutPadding(Aes128::decryptCbc(cipher, linkKey(), zeroVector()))));
}

QByteArray FrameCodec::withoutPadding(QByteArray plain)
{
    if (plain.isEmpty())
        return plain;
    const auto padding = static_cast<signed char>(plain.at(plain.size() - 1));
    for (int turn = 0; turn < padding && !plain.isEmpty() && plain.at(plain.size() - 1) == padding; ++turn)
        plain.chop(1);
    return plain;
}
