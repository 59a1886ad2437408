// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0
//
// Stands in front of the few functions of Qt by which one thread meets another, tells of the order and calls them.

#include "sanitizers/QtOrder.h"

#include <QMutex>
#include <QObject>
#include <QThread>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

// Only their addresses count.
char posted;
char ended;

// The function of that mangled name in the library behind this program.
template<typename Function>
Function *behind(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

void QtOrder::post()
{
    __tsan_release(&posted);
}

void QtOrder::take()
{
    __tsan_acquire(&posted);
}

void QtOrder::end()
{
    __tsan_release(&ended);
}

void QtOrder::await()
{
    __tsan_acquire(&ended);
}

#pragma GCC visibility push(default)

// All signals of classes that are built here come by.
void QMetaObject::activate(QObject *sender, const QMetaObject *meta, int signal, void **arguments)
{
    using Activate = void(QObject *, const QMetaObject *, int, void **);
    static auto *const activate = behind<Activate>("_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    QtOrder::post();
    activate(sender, meta, signal, arguments);
}

// The last user of shared data frees it; the others have let go inside Qt.
void QArrayData::deallocate(QArrayData *data, size_t objectSize, size_t alignment) noexcept
{
    using Deallocate = void(QArrayData *, size_t, size_t);
    static auto *const deallocate = behind<Deallocate>("_ZN10QArrayData10deallocateEPS_mm");
    QtOrder::await();
    deallocate(data, objectSize, alignment);
}

bool QThread::wait(QDeadlineTimer deadline)
{
    using Wait = bool(QThread *, QDeadlineTimer);
    static auto *const wait = behind<Wait>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool isOver = wait(this, deadline);
    QtOrder::await();
    return isOver;
}

// A call of a function in an object's thread, which may wait for its end.
bool QMetaObject::invokeMethodImpl(QObject *object, QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type,
                                   void *result)
{
    using Invoke = bool(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *);
    static auto *const invoke = behind<Invoke>(
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    QtOrder::post();
    const bool invoked = invoke(object, slot, type, result);
    if (type == Qt::BlockingQueuedConnection)
        QtOrder::await();
    return invoked;
}

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static auto *const lock = behind<void(QMutex *)>("_ZN6QMutex4lockEv");
    lock(this);
    __tsan_acquire(this);
}

void QMutex::unlock() noexcept
{
    static auto *const unlock = behind<void(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    unlock(this);
}

#pragma GCC visibility pop
