// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArrayList>
#include <QObject>

#include <functional>

/**
 * One execution of a target. Make it first in LLVMFuzzerTestOneInput(): whatever the client makes meanwhile and keeps
 * for good, as it does with players and outputs, goes with it, so that no run knows anything of the one before.
 *
 * The first run makes the application object, without a screen, and an engine for what lists drop. Nothing is dialled:
 * sockets are told to use a proxy that none of them can use. Timers of a second and more do not fire. Qt's messages are
 * silenced. All of it in the fuzzer's one thread.
 */
class FuzzRun final
{
public:
    FuzzRun();
    /// Ends the process when an object is left that is none of those that the client keeps for good.
    ~FuzzRun();

    /// Has the event loop do what is due, deferred deletions included.
    static void settle();
    /// The living object of that class; null without one.
    template<typename T>
    static T *find()
    {
        return qobject_cast<T *>(
            findIf([](QObject *object) { return qobject_cast<T *>(object) != nullptr; }));
    }

    /// The first `most` lines of an input.
    static QByteArrayList lines(const uint8_t *data, size_t size, int most);

private:
    static QObject *findIf(const std::function<bool(QObject *)> &wanted);
};
