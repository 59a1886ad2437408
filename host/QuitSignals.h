// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QSocketNotifier>

/// Turns SIGINT and SIGTERM into QCoreApplication::quit(), so that the process ends in order, with status 0.
/// One per process; lives in the GUI thread.
class QuitSignals final : public QObject
{
    Q_OBJECT

public:
    explicit QuitSignals(QObject *parent = nullptr);
    ~QuitSignals() override;

private:
    QSocketNotifier m_notifier;
};
