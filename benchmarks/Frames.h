// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QEventLoop>
#include <QQuickView>

/// Has the view drawn anew, and runs the event loop until that is on show. GUI thread.
inline void untilFrame(QQuickView *view)
{
    QEventLoop loop;
    QObject::connect(view, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit, Qt::QueuedConnection);
    view->update();
    loop.exec();
}
