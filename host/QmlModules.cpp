// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "QmlModules.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QStringList>
#include <QUrl>

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

bool canImport(QQmlEngine *engine, const Module &module)
{
    QQmlComponent component(engine);
    component.setData(QByteArray("import QtQml 2.0\nimport ") + module.import + "\nQtObject {}", QUrl());
    return component.isReady();
}

} // namespace

QString missingModules(QQmlEngine *engine)
{
    QStringList missing;
    for (const Module &module : modules) {
        if (!canImport(engine, module)) {
            missing += QCoreApplication::translate("QmlModules", "%1 (Debian package %2)")
                           .arg(QLatin1String(module.import), QLatin1String(module.package));
        }
    }
    if (missing.isEmpty())
        return {};
    return QCoreApplication::translate("QmlModules", "These QML modules are missing or do not load: %1.")
        .arg(missing.join(QStringLiteral(", ")));
}
