// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "WarningCount.h"

#include <QtGlobal>

#include <atomic>

namespace {

std::atomic_int count{0};
QtMessageHandler show = nullptr;

void countAndShow(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtWarningMsg || type == QtCriticalMsg)
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
