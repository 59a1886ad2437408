// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "Sentence.h"

class QSettings;

/// Gives the process the names under which Qt keeps the host's settings. Before any QSettings is made.
void nameApplication();

/// Puts a damaged settings file aside, under its name with ".damaged" behind, so that a new one can be begun and
/// nothing of it is lost. Says on the terminal that it did, or could not.
void setDamagedSettingsAside();

/// Writes out what has been set. One sentence when that fails, which is also said on the terminal, once.
Sentence writeOut(QSettings &settings);

/// Makes sure that the settings have a "uniqueID", the name of this installation at the device: made at the first
/// start, kept from then on. Returns it.
QString ensureUniqueId();

/// Stands in for the font family of the screens, which few systems have, with the fonts that are there.
/// Needs a QGuiApplication.
void substituteFonts();
