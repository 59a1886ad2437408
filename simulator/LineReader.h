// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

/**
 * The lines of the standard input, as they come, without blocking; the last one needs no line end. The input's end is
 * no reason to stop: a simulator may have been started without one. Nor is the background of a terminal, from where
 * nothing can be read until the job comes to the foreground. One object per process, on the main thread, made by
 * main(); SIGTTIN is ignored from then on.
 */
class LineReader final : public QObject
{
    Q_OBJECT

public:
    explicit LineReader(QObject *parent = nullptr);

Q_SIGNALS:
    void lineRead(const QString &line); ///< without its end

    /// A line is longer than any command, and is passed over. `bytes` is what one may have.
    void lineDropped(int bytes);

private:
    void read();
    void take(const QByteArray &bytes);
    void readAgainLater();
    void end();

    QSocketNotifier m_notifier;
    QByteArray m_buffer;
    bool m_skips = false; ///< until the next line end
};
