// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdio>
#include <functional>

#include <unistd.h>

/// What the servers of this folder share: they tell a number a line, and end with their standard input.
namespace ServerLife {

constexpr int longest = 600 * 1000; ///< milliseconds, after which they end by themselves

inline void tell(int number)
{
    std::printf("%d\n", number);
    std::fflush(stdout);
}

/// Runs the event loop until the input ends; `lineRead` is called when something was written to it.
inline int run(const std::function<void()> &lineRead = [] {})
{
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        char line[16];
        if (read(STDIN_FILENO, line, sizeof line) > 0)
            lineRead();
        else
            QCoreApplication::quit();
    });
    QTimer::singleShot(longest, QCoreApplication::instance(), &QCoreApplication::quit);
    return QCoreApplication::exec();
}

} // namespace ServerLife
