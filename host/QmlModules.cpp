// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "QmlModules.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPluginLoader>
#include <QQmlEngine>
#include <QStringList>

namespace {

struct Module
{
    const char *import;
    const char *package;
};

constexpr Module modules[] = {
    {"QtQuick 2.0", "qml-module-qtquick2"},
    {"QtQuick.Window 2.2", "qml-module-qtquick-window2"},
    {"QtQml.Models 2.2", "qml-module-qtqml-models2"},
    {"QtQuick.Layouts 1.1", "qml-module-qtquick-layouts"},
    {"QtQuick.Controls 1.2", "qml-module-qtquick-controls"},
    {"QtQuick.Controls.Styles 1.2", "qml-module-qtquick-controls"},
    {"QtGraphicalEffects 1.0", "qml-module-qtgraphicaleffects"},
};

// Of the folders that an import path may have it in, Qt takes the one with a version first: QtQuick/Window.2, then
// QtQuick/Window, for QtQuick.Window 2.2.
QString findDescription(const QQmlEngine &engine, const QString &import)
{
    const QString folder = import.section(QLatin1Char(' '), 0, 0).replace(QLatin1Char('.'), QLatin1Char('/'));
    const QString major = import.section(QLatin1Char(' '), 1).section(QLatin1Char('.'), 0, 0);
    const QStringList paths = engine.importPathList();
    for (const QString &name : {folder + QLatin1Char('.') + major, folder}) {
        for (const QString &path : paths) {
            const QString file = path + QLatin1Char('/') + name + QStringLiteral("/qmldir");
            if (QFile::exists(file))
                return file;
        }
    }
    return {};
}

// Its description is read from the file; what it needs itself comes with its package.
bool isPlugin(const QDir &folder, const QByteArray &name)
{
    const QPluginLoader plugin(folder.filePath(QStringLiteral("lib%1.so").arg(QString::fromUtf8(name))));
    return !plugin.metaData().isEmpty();
}

bool isThere(const QQmlEngine &engine, const Module &module)
{
    QFile description(findDescription(engine, QLatin1String(module.import)));
    if (description.fileName().isEmpty() || !description.open(QIODevice::ReadOnly))
        return false;
    const QDir folder = QFileInfo(description).dir();
    while (!description.atEnd()) {
        const QList<QByteArray> words = description.readLine().simplified().split(' ');
        if (words.first() == "plugin" && !isPlugin(folder, words.value(1)))
            return false;
    }
    return true;
}

} // namespace

QString missingModules(const QQmlEngine &engine)
{
    QStringList missing;
    for (const Module &module : modules) {
        if (!isThere(engine, module)) {
            missing += QCoreApplication::translate("QmlModules", "%1 (Debian package %2)")
                           .arg(QLatin1String(module.import), QLatin1String(module.package));
        }
    }
    if (missing.isEmpty())
        return {};
    return QCoreApplication::translate("QmlModules", "These QML modules are missing or do not load: %1.")
        .arg(missing.join(QStringLiteral(", ")));
}
