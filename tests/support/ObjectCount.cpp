// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ObjectCount.h"

#include <QDir>
#include <QObject>

#include <atomic>

QT_BEGIN_NAMESPACE
extern quintptr Q_CORE_EXPORT qtHookData[];
QT_END_NAMESPACE

namespace {

// Places in Qt's table of hooks.
constexpr int objectAdded = 3;
constexpr int objectRemoved = 4;

std::atomic<int> count{0};

void added(QObject *)
{
    ++count;
}

void removed(QObject *)
{
    --count;
}

} // namespace

int ObjectCount::alive()
{
    qtHookData[objectAdded] = reinterpret_cast<quintptr>(&added);
    qtHookData[objectRemoved] = reinterpret_cast<quintptr>(&removed);
    return count;
}

int ObjectCount::threads()
{
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}
