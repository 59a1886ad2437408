// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QSocketNotifier>

/**
 * Turns SIGINT and SIGTERM into a signal of the event loop. One object per process, on the main thread, made
 * by main(); the handlers stay until the process ends.
 */
class SignalWatcher final : public QObject
{
    Q_OBJECT

public:
    explicit SignalWatcher(QObject *parent = nullptr);

Q_SIGNALS:
    void stopRequested();

private:
    QSocketNotifier m_notifier;
};
