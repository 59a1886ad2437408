// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QTimer>

class QQmlEngine;

/**
 * Frees what lists have dropped, and no sooner than the screens have let go of it: what QML has never seen is deleted,
 * the rest is handed to QML's garbage collector. Both happens bit by bit, when there is nothing else to do.
 *
 * One for the process, a child of the engine that begin() was called with, in the GUI thread. Before that, and when
 * the engine is gone, what is dropped is kept until the application object goes: plain C++ users may still hold it.
 */
class Reclaimer final : public QObject
{
    Q_OBJECT

public:
    ~Reclaimer() override;

    /// To be called when there is an engine whose screens show the lists. A later call is ignored while it lives.
    static void begin(QQmlEngine *engine);

    /// Lets go of an object without a parent; null does nothing. The caller has taken it out of all lists that it knows.
    static void drop(QObject *object);

    template<typename T>
    static void dropAll(const QList<T *> &objects)
    {
        for (T *object : objects)
            drop(object);
    }

private:
    using Queue = QQueue<QPointer<QObject>>;

    explicit Reclaimer(QQmlEngine *engine);
    void freeSome();
    static Queue &kept();
    static void freeKept();

    static QPointer<Reclaimer> s_instance;
    static Queue s_kept;

    Queue m_dropped;
    int m_gone = 0; // since memory was given back to the system
    QTimer m_idle;
};
