// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "Endpoint.h"

#include <QCoreApplication>
#include <QSize>
#include <QStringList>

#include <optional>

/// What the command line asks for. A plain value; the password is not part of it, on purpose: what stands on a
/// command line can be read by everybody on the machine.
struct HostOptions
{
    Q_DECLARE_TR_FUNCTIONS(HostOptions)

public:
    /// What is to happen: go on, or print `text` and end with status 0 (Tell) or 2 (Refuse).
    enum class Next { Run, Tell, Refuse };

    Next next = Next::Run;
    QString text; ///< help, version, or one sentence on what is wrong

    /// The simulated house inside this process; excludes `device`. With neither, it is the device chosen last.
    bool demo = false;
    std::optional<Endpoint> device;
    QString user;                   ///< not empty when `device` is set
    QString passwordFile;           ///< empty: environment or terminal
    std::optional<Endpoint> mopidy; ///< a real music server to announce in the demo
    QString language;               ///< "en", "de" or "it"; empty: the settings' or the system's
    bool smallScreen = false;
    bool fullScreen = false;
    QSize size;   ///< of the window, at least as large as the scene allows; invalid: the scene's own
    QString tour; ///< folder for the tour's pictures; empty: there is no tour

    /// Reads the arguments, the program's name first. Needs a QCoreApplication (for the help text).
    static HostOptions read(const QStringList &arguments);
};
