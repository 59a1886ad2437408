// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "soak/Measure.h"

#include "support/Memory.h"
#include "support/ObjectCount.h"
#include "support/Text.h"

#include <QDir>

Measure Measure::now()
{
    const int files =
        QDir("/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
    return {Memory::resident(),  double(ObjectCount::alive()),
            Memory::allocated(), double(ObjectCount::threads()),
            double(files),       1};
}

void Measure::add(const Measure &other)
{
    resident += other.resident;
    objects += other.objects;
    allocated += other.allocated;
    threads += other.threads;
    files += other.files;
    samples += other.samples;
}

Measure Measure::mean() const
{
    const double n = samples;
    return {resident / n, objects / n, allocated / n, threads / n, files / n, 1};
}

QString Measure::text() const
{
    return "%1 MiB  %5 MiB allocated  %2 objects  %3 threads  %4 descriptors"_s.arg(resident, 8, 'f', 2)
        .arg(objects, 8, 'f', 0)
        .arg(threads, 5, 'f', 1)
        .arg(files, 5, 'f', 1)
        .arg(allocated, 6, 'f', 2);
}
