// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>
#include <QStringList>

/**
 * The command line of the simulator, read into plain values. A password is not among them: what stands on a command
 * line can be read by everybody on the machine.
 */
struct SimulatorOptions
{
    quint16 port = 0;   ///< of the device; 0: chosen by the system
    QString mopidyHost; ///< empty: no real server
    quint16 mopidyPort = 0;
    int outputs = 0;      ///< 0: the demonstration's
    int tracks = 0;       ///< of each music server; 0: the demonstration's
    bool trace = false;   ///< print what passes on the wire
    QString stateFile;    ///< with commands to carry out at the start; empty: none
    QString user;         ///< the only one who may log in; empty: everybody
    QString passwordFile; ///< with that user's password; empty: the environment has it

    QString answer; ///< text to print in place of running (help, version); empty: run
    QString error;  ///< what is wrong with the command line, in one sentence; empty: nothing

    /// Reads the arguments, the program's name first.
    static SimulatorOptions parse(const QStringList &arguments);
};
