// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QStringList>

/// The languages that the host and the client know: "en", "de" and "it".
QStringList hostLanguages();
/// The one of them that the system speaks, else English.
QString systemLanguage();
/// The one of the settings, else the system's; English in place of one that is not known.
QString chosenLanguage();

/// Installs the host's own catalogue of that language in the application, in place of the one before; "en" needs none.
/// False when there is no such catalogue.
bool speakAsHost(const QString &language);
/// The same for the host and for the client library, which must be loaded.
bool installLanguage(const QString &language);
