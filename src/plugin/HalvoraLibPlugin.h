// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQmlExtensionPlugin>

/**
 * The library's front door: Qt's plugin loader makes one of these, and initializeEngine() registers the types.
 * A host may take the instance from QPluginLoader and call that itself, for each of its engines.
 */
class HalvoraLibPlugin final : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    /// Registers nothing, on purpose: everything is done in initializeEngine().
    void registerTypes(const char *uri) override;
    /// Registers all types of the three modules, whatever `uri` is imported. `engine` is not used and may be null.
    void initializeEngine(QQmlEngine *engine, const char *uri) override;
};
