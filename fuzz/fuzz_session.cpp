// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

// A session with the device, a message a line, enciphered and sent over a socket, from the login on. Lines of one of the
// words below are what a person does meanwhile, or a second that passes.

#include "link/HalvoraConnSocket.h"
#include "link/HalvoraConnThread.h"
#include "model/Halvora.h"
#include "support/DevicePeer.h"
#include "support/FuzzRun.h"
#include "support/MirrorCheck.h"
#include "support/Require.h"
#include "support/Words.h"

namespace {

struct Deed
{
    const char *word;
    void (*act)(Halvora &halvora);
};

constexpr Deed deeds[] = {
    {"volume", [](Halvora &halvora) { halvora.actionSetVolumeForOutput(30, 5); }},
    {"mute", [](Halvora &halvora) { halvora.actionSetMuteForOutput(true, 0); }},
    {"loud", [](Halvora &halvora) { halvora.actionSetVolumeForSource(70, 0); }},
    {"route", [](Halvora &halvora) { halvora.actionSetMatrixSetting(1, 0); }},
    {"silence", [](Halvora &halvora) { halvora.actionSetMatrixSetting(-1, 1); }},
    {"slot", [](Halvora &halvora) { halvora.actionAssociatePlaylist(1, QStringLiteral("m3u:a")); }},
    {"second", [](Halvora &) { FuzzRun::find<HalvoraConnSocket>()->timerTimeout(); }},
};

// The client's end, as the link's thread puts it together.
void join(HalvoraConnThread &link, HalvoraConnection &client)
{
    QObject::connect(&client, &HalvoraConnection::connectionOpen, &link, &HalvoraConnThread::connectionOpen);
    QObject::connect(&client, &HalvoraConnection::elaborateCommandReceived, &link,
                     &HalvoraConnThread::elaborateCommandReceived);
    QObject::connect(&link, &HalvoraConnThread::requireSendString, &client, &HalvoraConnection::sendString);
    QObject::connect(&link, &HalvoraConnThread::requireSendCommand, &client, &HalvoraConnection::sendCommand);
}

// Everything that a client may say.
void requireKnown(const QStringList &messages)
{
    for (const QString &message : messages) {
        REQUIRE(message == QLatin1String("UI_ALIVE") || message == QLatin1String("UI_COMMAND|17")
                || message.startsWith(QLatin1String("UI_COMMAND|20")));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    constexpr int mostLines = 64;
    const FuzzRun run;
    DevicePeer device;
    HalvoraConnThread link;
    Halvora halvora;
    join(link, device.client);
    halvora.setConnPointer(&link);
    device.open();
    REQUIRE(device.heard().value(0).startsWith(QLatin1String("CONNECT|")));

    for (const QByteArray &line : FuzzRun::lines(data, size, mostLines)) {
        if (const Deed *deed = entryOf(deeds, line))
            deed->act(halvora);
        else
            device.sayMessage(QString::fromUtf8(line));
        FuzzRun::settle();
        requireKnown(device.heard());
        requireSound(halvora);
    }
    return 0;
}
