// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QFile>

#include <malloc.h>
#include <unistd.h>

namespace Memory {

/// What of this process lies in memory, in MiB.
inline double resident()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / 1048576.0;
}

/// What is in use on the heap, in MiB, without what the allocator keeps for later.
inline double allocated()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd) / 1048576.0;
}

} // namespace Memory
