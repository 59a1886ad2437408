// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/MirrorCheck.h"

#include "model/Halvora.h"
#include "support/Listed.h"
#include "support/Require.h"

namespace {

template<typename T>
void requireAscending(const QList<T *> &list)
{
    for (int i = 1; i < list.size(); ++i)
        REQUIRE(list.at(i - 1)->index() < list.at(i)->index());
}

} // namespace

void requireSound(Halvora &halvora)
{
    const QList<Output *> outputs = listed(halvora.outputs());
    const QList<Source *> sources = listed(halvora.sources());
    requireAscending(outputs);
    requireAscending(sources);
    REQUIRE(halvora.sourceMap().values() == sources);
    for (Output *output : outputs) {
        REQUIRE(halvora.outputAt(output->index()) == output);
        REQUIRE(!output->selectedSource() || sources.contains(output->selectedSource()));
    }
    for (Source *source : sources) {
        REQUIRE(halvora.sourceAt(source->index()) == source);
        REQUIRE(!source->player() || source->player()->sourceRef() == source->index());
    }
    for (const PlaylistEntry *entry : listed(halvora.playlistEntries()))
        REQUIRE(entry && !entry->playlistRef().contains(QLatin1Char('@')));
}
