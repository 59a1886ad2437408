// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/Reclaimer.h"

#include <QCoreApplication>
#include <QQmlEngine>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

constexpr int worthwhile = 1000; // objects that have gone

// The C library keeps what is freed in the middle of its heap, at its highest tide and for good.
void giveMemoryBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace

QPointer<Reclaimer> Reclaimer::s_instance;
Reclaimer::Queue Reclaimer::s_kept;

Reclaimer::Reclaimer(QQmlEngine *engine) : QObject(engine)
{
    m_idle.setInterval(0);
    connect(&m_idle, &QTimer::timeout, this, &Reclaimer::freeSome);
}

Reclaimer::~Reclaimer()
{
    kept() += m_dropped;
}

void Reclaimer::begin(QQmlEngine *engine)
{
    if (engine && !s_instance)
        s_instance = new Reclaimer(engine);
}

void Reclaimer::drop(QObject *object)
{
    if (!object)
        return;
    if (!s_instance) {
        kept().enqueue(object);
        return;
    }
    s_instance->m_dropped.enqueue(object);
    s_instance->m_idle.start();
}

Reclaimer::Queue &Reclaimer::kept()
{
    // The library may be unloaded ahead of the application's end.
    struct AtTheEnd
    {
        AtTheEnd() { qAddPostRoutine(freeKept); }
        ~AtTheEnd() { qRemovePostRoutine(freeKept); }
    };
    static const AtTheEnd atTheEnd;
    return s_kept;
}

// An object that goes may drop others.
void Reclaimer::freeKept()
{
    while (!s_kept.isEmpty())
        delete s_kept.dequeue();
}

// An object that QML has looked at belongs to an engine; its collector knows who still shows it.
void Reclaimer::freeSome()
{
    constexpr int atOnce = 200;
    for (int i = 0; i < atOnce && !m_dropped.isEmpty(); ++i) {
        QObject *object = m_dropped.dequeue();
        ++m_gone;
        QJSEngine *seenBy = object ? qjsEngine(object) : nullptr;
        if (seenBy)
            seenBy->newQObject(object);
        else
            delete object;
    }
    if (!m_dropped.isEmpty())
        return;
    m_dropped.clear(); // with the room of its longest time
    m_idle.stop();
    if (m_gone < worthwhile)
        return;
    m_gone = 0;
    giveMemoryBack();
}
