// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ObjectCount.h"
#include "support/ObjectHooks.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QMutex>
#include <QSet>
#include <QThread>

namespace {

struct Census
{
    QMutex mutex; // objects come and go on all threads
    int count = 0;
    QSet<QObject *> known;
};

// Never destroyed: objects go until the very end of the process.
Census &census()
{
    static auto *const all = new Census;
    return *all;
}

void added(QObject *object)
{
    const QMutexLocker lock(&census().mutex);
    ++census().count;
    census().known.insert(object);
}

void removed(QObject *object)
{
    const QMutexLocker lock(&census().mutex);
    --census().count;
    census().known.remove(object);
}

} // namespace

int ObjectCount::alive()
{
    setObjectHooks(&added, &removed);
    const QMutexLocker lock(&census().mutex);
    return census().count;
}

int ObjectCount::timers()
{
    const QMutexLocker lock(&census().mutex);
    int running = 0;
    for (QObject *object : qAsConst(census().known)) {
        if (object->thread() == QThread::currentThread())
            running += QAbstractEventDispatcher::instance()->registeredTimers(object).size();
    }
    return running;
}

int ObjectCount::threads()
{
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}
