// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/SignalWatcher.h"

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int ends[2] = {-1, -1};

// A handler may do next to nothing: one byte wakes the event loop, which does the rest.
void wakeLoop(int)
{
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(ends[0], &byte, sizeof byte);
}

int readingEnd()
{
    [[maybe_unused]] const int result = ::socketpair(AF_UNIX, SOCK_STREAM, 0, ends);
    return ends[1];
}

} // namespace

SignalWatcher::SignalWatcher(QObject *parent)
    : QObject(parent), m_notifier(readingEnd(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] {
        m_notifier.setEnabled(false);
        Q_EMIT stopRequested();
    });
    struct sigaction action = {};
    action.sa_handler = wakeLoop;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}
