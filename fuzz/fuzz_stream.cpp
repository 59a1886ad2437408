// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

// The stream from the device, byte by byte: cut into frames, deciphered, sorted by the link. The first byte of an input
// is the number of bytes in a read, 0 for all at once; a read brings more where there would be too many of them.

#include "support/DevicePeer.h"
#include "support/FuzzRun.h"
#include "support/Require.h"

#include <algorithm>

namespace {

struct Heard
{
    QStringList commands;
    bool refused;
};

Heard heardFrom(const QByteArray &stream, int bytesPerRead)
{
    DevicePeer device;
    QStringList commands;
    QObject::connect(&device.client, &HalvoraConnection::elaborateCommandReceived, &device.client,
                     [&commands](const QString &command) { commands << command; });
    device.open();
    for (int from = 0; from < stream.size(); from += bytesPerRead)
        device.say(stream.mid(from, bytesPerRead));
    device.heard();
    return {commands, device.isRefused()};
}

bool isWithin(const QStringList &few, const QStringList &many)
{
    auto at = many.begin();
    for (const QString &command : few) {
        at = std::find(at, many.end(), command);
        if (at == many.end())
            return false;
        ++at;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 2)
        return 0;
    const FuzzRun run;
    const QByteArray stream(reinterpret_cast<const char *>(data + 1), int(size - 1));
    const Heard atOnce = heardFrom(stream, stream.size());
    if (data[0] == 0)
        return 0;
    constexpr int mostReads = 32;
    const Heard inPieces = heardFrom(stream, qMax(int(data[0]), stream.size() / mostReads));
    // Behind a NUL the link is deaf until it dials again, and a refusal leaves unread what comes in a later read. A head
    // without its rest is looked at as well, so there may be more commands in pieces.
    REQUIRE(stream.contains('\0') || atOnce.refused || inPieces.refused
            || isWithin(atOnce.commands, inPieces.commands));
    return 0;
}
