// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

class QQmlEngine;

/// Looks for each of Qt's QML modules that the scenes need, and for its plugin. None is loaded: that would be a
/// tenth of the host's start. Returns one sentence that names those that are not there, or are no plugins of this
/// Qt, and the Debian packages that bring them, or an empty text.
QString missingModules(const QQmlEngine &engine);
