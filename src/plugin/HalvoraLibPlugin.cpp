// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "plugin/HalvoraLibPlugin.h"

#include "plugin/TypeRegistry.h"

void HalvoraLibPlugin::registerTypes(const char *) { }

void HalvoraLibPlugin::initializeEngine(QQmlEngine *, const char *)
{
    registerHalvoraTypes();
}
