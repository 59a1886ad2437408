// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "PluginGate.h"

#include "HostLog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QQmlExtensionInterface>

namespace {

constexpr char variable[] = "HALVORA_PLUGIN_DIR";
constexpr char module[] = "com.kestrum.halvoraint";

} // namespace

QStringList PluginGate::folders()
{
    if (qEnvironmentVariableIsSet(variable))
        return {QDir(qEnvironmentVariable(variable)).absolutePath()};
    const QDir own(QCoreApplication::applicationDirPath());
    const QDir modules(QLibraryInfo::location(QLibraryInfo::Qml2ImportsPath));
    QStringList found;
    for (const char *folder : {".", "../lib", "../src"})
        found += QDir::cleanPath(own.absoluteFilePath(QLatin1String(folder)));
    found += modules.absoluteFilePath(QStringLiteral("com/kestrum/halvoraint"));
    return found;
}

bool PluginGate::load()
{
    QStringList tried;
    for (const QString &folder : folders()) {
        const QString path = QDir(folder).absoluteFilePath(QStringLiteral("libHalvoraLib.so"));
        if (QFileInfo::exists(path))
            return take(path);
        tried += path;
    }
    m_error = tr("The client library was not found; tried %1.").arg(tried.join(QStringLiteral(", ")));
    return false;
}

bool PluginGate::take(const QString &path)
{
    m_loader.setFileName(path);
    m_plugin = qobject_cast<QQmlExtensionInterface *>(m_loader.instance());
    if (m_plugin) {
        qCDebug(lcHost) << "client library" << path;
        return true;
    }
    const QString why = m_loader.isLoaded() ? tr("it is no QML extension") : m_loader.errorString();
    m_error = tr("The client library %1 cannot be used: %2.").arg(path, why);
    return false;
}

void PluginGate::initialize(QQmlEngine *engine) const
{
    m_plugin->initializeEngine(engine, module);
}
