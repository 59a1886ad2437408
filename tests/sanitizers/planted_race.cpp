// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0
//
// A race on purpose, in the manner of this project: a slot counts in its thread, and whoever sent the signal counts too
// without waiting for the slot's end, but with an event in between. Shows that the sanitizer still sees one.

#include "sanitizers/QtOrder.h"

#include <QThread>

#include <atomic>

int main(int argc, char **argv)
{
    QtOrder::Application application(argc, argv);
    QThread thread;
    QObject worker;
    worker.moveToThread(&thread);
    thread.start();

    int racyCounter = 0;
    std::atomic<bool> counted{false}; // known without an order: what else the slot did need not be seen yet
    QMetaObject::invokeMethod(&worker, [&] {
        ++racyCounter;
        counted.store(true, std::memory_order_relaxed);
    });
    while (!counted.load(std::memory_order_relaxed)) { }
    QCoreApplication::postEvent(&application, new QEvent(QEvent::User));
    QCoreApplication::sendPostedEvents();
    ++racyCounter;

    thread.quit();
    thread.wait();
    return 0;
}
