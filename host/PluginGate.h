// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QCoreApplication>
#include <QPluginLoader>
#include <QString>
#include <QStringList>

class QQmlEngine;
class QQmlExtensionInterface;

/**
 * The way to the client library: finds libHalvoraLib.so, loads it and lets it register its types.
 *
 * Its resources (pictures, catalogues) are there once load() has succeeded. The library stays loaded until the
 * process ends.
 */
class PluginGate final
{
    Q_DECLARE_TR_FUNCTIONS(PluginGate)

public:
    /// The folders that are searched, in order: the one that HALVORA_PLUGIN_DIR names and no other; without it
    /// the program's own, ../lib and ../src from there, and the folder of the module among Qt's QML modules.
    static QStringList folders();

    /// False when no folder has a library that loads: error() is then one sentence with the paths.
    bool load();
    QString error() const { return m_error; }
    QString path() const { return m_loader.fileName(); } ///< the library that was loaded

    /// Registers the library's types. For each engine once, before it reads QML; needs load().
    void initialize(QQmlEngine *engine) const;

private:
    bool take(const QString &path);

    QPluginLoader m_loader;
    QQmlExtensionInterface *m_plugin = nullptr; // owned by the loader
    QString m_error;
};
