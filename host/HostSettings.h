// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

/// Gives the process the names under which Qt keeps the host's settings. Before any QSettings is made.
void nameApplication();

/// Makes sure that the settings have a "uniqueID", the name of this installation at the device: made at the first
/// start, kept from then on. Returns it.
QString ensureUniqueId();

/// Stands in for the font family of the screens, which few systems have, with the fonts that are there.
/// Needs a QGuiApplication.
void substituteFonts();

/// Installs the client library's catalogue of that language in the application; "en" needs none. The library must
/// be loaded. False when there is no such catalogue.
bool installLanguage(const QString &language);
