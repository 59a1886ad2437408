// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QLoggingCategory>

/// "halvora.host": what the host itself has to say. Warnings and worse are shown; QT_LOGGING_RULES opens the rest.
Q_DECLARE_LOGGING_CATEGORY(lcHost)

/// Warns in "halvora.host" with one sentence for the person at the terminal.
void sayAtTerminal(const QString &sentence);

/// Keeps what the client's screens note for their developers off the terminal; QT_LOGGING_RULES="qml.debug=true" brings
/// it back.
void hideScreenNotes();
