// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/HugePng.h"

#include <QtEndian>

namespace {

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

quint32 crc32(const QByteArray &bytes)
{
    quint32 crc = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~crc;
}

QByteArray chunk(const QByteArray &type, const QByteArray &data)
{
    return bigEndian(quint32(data.size())) + type + data + bigEndian(crc32(type + data));
}

} // namespace

QByteArray HugePng::bytes(quint32 width)
{
    const QByteArray header = bigEndian(width) + bigEndian(width) + QByteArray::fromHex("0806000000");
    // The length that qCompress() puts in front is no part of the stream.
    const QByteArray pixels = qCompress(QByteArray(1024, '\0')).mid(4);
    return QByteArray::fromHex("89504e470d0a1a0a") + chunk("IHDR", header) + chunk("IDAT", pixels)
        + chunk("IEND", {});
}
