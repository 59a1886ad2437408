// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QGuiApplication>

/**
 * Tells ThreadSanitizer of the order that Qt puts between threads and that it cannot see, as the distribution's Qt is
 * not built with it: what went before a signal is over when the event that carries it is handled, and what was done in
 * an event is over when what it shared is freed. For the programs of a thread-sanitized build.
 *
 * More is told than there is: who gets a signal cannot be seen, so that each goes to all threads. A race hides when one
 * side has emitted a signal behind it and the other has taken up an event since.
 */
namespace QtOrder {

void post();  ///< what happened here so far is before all events that are taken up from now on, on any thread
void take();  ///< takes up an event
void end();   ///< what happened here so far is before all that waits for it
void await(); ///< all that has ended so far, on any thread, happened before what follows here

class Application final : public QGuiApplication
{
public:
    using QGuiApplication::QGuiApplication;

    bool notify(QObject *receiver, QEvent *event) override // on the receiver's thread
    {
        take();
        const bool handled = QGuiApplication::notify(receiver, event);
        end();
        return handled;
    }
};

} // namespace QtOrder
