// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

/// What this process holds: a sample, or the sum of many.
struct Measure
{
    double resident = 0;  ///< MiB
    double objects = 0;   ///< QObjects that are alive
    double allocated = 0; ///< MiB in use on the heap, without what the allocator keeps
    double threads = 0;
    double files = 0; ///< open descriptors, sockets among them
    int samples = 0;

    static Measure now();

    void add(const Measure &other);
    Measure mean() const;
    QString text() const; ///< on one line
};
