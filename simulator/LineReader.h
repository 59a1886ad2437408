// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

/**
 * The lines of the standard input, as they come, without blocking. Its end is no reason to stop: a simulator may have
 * been started without one. One object per process, on the main thread.
 */
class LineReader final : public QObject
{
    Q_OBJECT

public:
    explicit LineReader(QObject *parent = nullptr);

Q_SIGNALS:
    void lineRead(const QString &line);

private:
    void read();

    QSocketNotifier m_notifier;
    QByteArray m_buffer;
};
