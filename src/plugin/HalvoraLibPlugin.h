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
    // The name as it has been since Qt 5.0; the macro of Qt 5.15 adds a version that hosts may not expect.
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QQmlExtensionInterface")

public:
    /// Registers nothing, on purpose: everything is done in initializeEngine().
    void registerTypes(const char *uri) override;
    /// Registers all types of the three modules, whatever `uri` is imported. `engine` is not used and may be null.
    void initializeEngine(QQmlEngine *engine, const char *uri) override;
};
