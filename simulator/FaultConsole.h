// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QString>

class DemoHouse;

/**
 * Switches the faults of a running house on and off, and plays a person at its device, by lines of text: a word and,
 * for most, a value. "help" lists them; a line that begins with "#" does nothing.
 *
 * Works on a house that it does not own and that outlives it, in the house's thread.
 */
class FaultConsole final : public QObject
{
    Q_OBJECT

public:
    explicit FaultConsole(DemoHouse *house, QObject *parent = nullptr);

    /// Carries one line out and returns what to say about it: "" when it is done, otherwise a sentence or the list.
    /// A line that cannot be understood or carried out changes nothing.
    QString carryOut(const QString &line);

    /// Carries out the lines of this file, in UTF-8, up to the first that has an answer, and returns that behind the
    /// file's name and the line's number. "" when all are done; a sentence when the file cannot be read.
    QString carryOutFile(const QString &name);

Q_SIGNALS:
    void quitRequested();

private:
    QString help() const;

    DemoHouse *m_house;
};
