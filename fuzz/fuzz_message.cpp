// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

// One deciphered message of the device, sorted into the mirror of a house of a few outputs and sources.

#include "link/FrameCodec.h"
#include "link/HalvoraConnThread.h"
#include "model/Halvora.h"
#include "support/FuzzRun.h"
#include "support/MirrorCheck.h"
#include "support/Require.h"

namespace {

const char *const house[] = {
    "1|BROAD|0||0@Stream@1@127.0.0.1@6680|1@Radio@0|7@Tuner@0",
    "2|BROAD|1||0@Kitchen|1@Bath|5@Hall",
    "3|BROAD|2||0@0|5@7",
    "4|BROAD|25||1@Morning@m3u:a",
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const FuzzRun run;
    HalvoraConnThread link;
    Halvora halvora;
    halvora.setConnPointer(&link);
    for (const char *message : house)
        link.elaborateCommandReceived(QLatin1String(message));

    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    link.elaborateCommandReceived(text);
    requireSound(halvora);
    REQUIRE(halvora.sourceMap().size() >= 3 && halvora.outputAt(5));

    QString whole = QLatin1String("0|") + text;
    const int nul = whole.indexOf(QChar(0));
    whole.truncate(nul < 0 ? whole.size() : nul);
    REQUIRE(FrameCodec::decryptText(FrameCodec::encryptText(whole)) == whole);
    return 0;
}
