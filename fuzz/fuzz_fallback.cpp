// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

// The web service's answer to the question where pictures are.

#include "images/BackupAnswer.h"
#include "player/PlayerItem.h"
#include "support/FuzzRun.h"
#include "support/Require.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const FuzzRun run;
    const auto pictures = BackupAnswer::pictures(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    if (!pictures)
        return 0;
    PlayerItem item;
    *item.images = *pictures;
    for (auto it = pictures->begin(); it != pictures->end(); ++it)
        REQUIRE(it.key() >= 30 && it.key() <= 350 && !it.value().isEmpty());
    for (const QString &path : {item.smallImgPath(), item.mediumImgPath(), item.largeImgPath()})
        REQUIRE(path.isEmpty() == pictures->isEmpty());
    return 0;
}
