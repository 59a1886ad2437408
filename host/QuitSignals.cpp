// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "QuitSignals.h"

#include <QCoreApplication>

#include <csignal>

#include <sys/socket.h>
#include <unistd.h>

namespace {

int ends[2] = {-1, -1}; // the handler writes to the first, the event loop reads from the second

void tellLoop(int)
{
    const char byte = 1;
    // A full pipe means that the loop has been told already.
    [[maybe_unused]] const ssize_t written = write(ends[0], &byte, sizeof byte);
}

int openEnds()
{
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0)
        qFatal("no socket pair for the signals");
    return ends[1];
}

void handle(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

} // namespace

QuitSignals::QuitSignals(QObject *parent) : QObject(parent), m_notifier(openEnds(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] {
        m_notifier.setEnabled(false);
        QCoreApplication::quit();
    });
    handle(tellLoop);
}

QuitSignals::~QuitSignals()
{
    handle(SIG_DFL);
    close(ends[0]);
    close(ends[1]);
}
