// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>
#include <QStringList>

/**
 * The command line of the simulator, read into plain values.
 */
struct SimulatorOptions
{
    quint16 port = 0;   ///< of the device; 0: chosen by the system
    QString mopidyHost; ///< empty: no real server
    quint16 mopidyPort = 0;
    int outputs = 0;    ///< 0: the demonstration's
    int tracks = 0;     ///< of each music server; 0: the demonstration's
    bool trace = false; ///< print what passes on the wire

    QString answer; ///< text to print in place of running (help, version); empty: run
    QString error;  ///< what is wrong with the command line, in one sentence; empty: nothing

    /// Reads the arguments, the program's name first.
    static SimulatorOptions parse(const QStringList &arguments);
};
