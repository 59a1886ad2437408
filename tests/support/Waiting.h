// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QtTest>

namespace Waiting {

/// Whether `condition` comes true within `timeout` milliseconds. Looks at it whenever something has happened, where
/// QTest::qWaitFor() sleeps between two looks.
template<typename Condition>
bool comes(Condition condition, int timeout = 5000)
{
    constexpr int longestSleep = 5; // for what happens in other threads and processes
    const QDeadlineTimer deadline(timeout);
    QTimer pulse;
    pulse.start(longestSleep);
    while (!condition() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return condition();
}

} // namespace Waiting

// QTRY_COMPARE() and its like wait so, too.
#undef QTRY_LOOP_IMPL
#define QTRY_LOOP_IMPL(expr, timeoutValue, step)                                                             \
    QElapsedTimer qt_test_clock;                                                                             \
    qt_test_clock.start();                                                                                   \
    Waiting::comes([&] { return bool(expr); }, timeoutValue);                                                \
    const int qt_test_i = int(qt_test_clock.elapsed());                                                      \
    Q_UNUSED(qt_test_i)                                                                                      \
    Q_UNUSED(step)
