// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "WarningCount.h"

#include <QString>

#include <atomic>

namespace {

std::atomic_int count{0};
QtMessageHandler show = nullptr;

// An installed library has a qmldir, which cannot name its module: the types are registered for the engine, before any
// import. Qt says so at each start.
bool isExpected(const QString &text)
{
    return text.contains(QLatin1String("does not contain a module identifier directive"));
}

void countAndShow(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if ((type == QtWarningMsg || type == QtCriticalMsg) && !isExpected(text))
        ++count;
    show(type, context, text);
}

} // namespace

void WarningCount::begin()
{
    show = qInstallMessageHandler(countAndShow);
}

int WarningCount::soFar()
{
    return count;
}
