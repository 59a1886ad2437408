// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>

QT_BEGIN_NAMESPACE
extern quintptr Q_CORE_EXPORT qtHookData[];
QT_END_NAMESPACE

/// Has Qt call these, on the thread that does it, whenever an object has been made and before one goes, by the hooks that
/// it keeps for debuggers. Null for none; they replace earlier ones.
inline void setObjectHooks(void (*added)(QObject *), void (*removed)(QObject *))
{
    // Places in Qt's table of hooks.
    constexpr int objectAdded = 3;
    constexpr int objectRemoved = 4;
    qtHookData[objectAdded] = reinterpret_cast<quintptr>(added);
    qtHookData[objectRemoved] = reinterpret_cast<quintptr>(removed);
}
