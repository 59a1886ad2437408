// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

class QQmlEngine;

/// Tries to import each of Qt's QML modules that the scenes need. Returns one sentence that names those that
/// cannot be imported and the Debian packages that bring them, or an empty text when all are there.
QString missingModules(QQmlEngine *engine);
