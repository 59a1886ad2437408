// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QGuiApplication>

/**
 * Tells ThreadSanitizer of the order that Qt puts between threads and that it cannot see, as the distribution's Qt is
 * not built with it: what went before a signal is over when the event that carries it is handled, and what was done in
 * an event is over when what it shared is freed. For the programs of a thread-sanitized build.
 */
namespace QtOrder {

void arrive(); ///< all that left so far, on any thread, happened before what follows here
void leave();  ///< what happened here so far is before all that arrives from now on

class Application final : public QGuiApplication
{
public:
    using QGuiApplication::QGuiApplication;

    bool notify(QObject *receiver, QEvent *event) override // on the receiver's thread
    {
        arrive();
        const bool handled = QGuiApplication::notify(receiver, event);
        leave();
        return handled;
    }
};

} // namespace QtOrder
