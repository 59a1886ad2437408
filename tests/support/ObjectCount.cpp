// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ObjectCount.h"
#include "support/ObjectHooks.h"

#include <QDir>

#include <atomic>

namespace {

std::atomic<int> count{0};

void added(QObject *)
{
    ++count;
}

void removed(QObject *)
{
    --count;
}

} // namespace

int ObjectCount::alive()
{
    setObjectHooks(&added, &removed);
    return count;
}

int ObjectCount::threads()
{
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}
