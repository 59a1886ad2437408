// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include <QGuiApplication>
#include <QPluginLoader>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQmlExtensionPlugin>

// minimal-host LIBRARY HOST PORT USER, with the password in HALVORA_PASSWORD
int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("Kestrum"));
    QCoreApplication::setApplicationName(QStringLiteral("minimal-host"));
    QGuiApplication application(argc, argv);
    QStringList arguments = application.arguments().mid(1) << qEnvironmentVariable("HALVORA_PASSWORD");
    QPluginLoader library(arguments.takeFirst());
    auto *client = qobject_cast<QQmlExtensionPlugin *>(library.instance());
    if (!client || arguments.size() != 4) {
        qCritical("%s", qPrintable(library.errorString()));
        return 1;
    }
    QQmlApplicationEngine engine;
    client->initializeEngine(&engine, "com.kestrum.halvoraint");
    engine.rootContext()->setContextProperty(QStringLiteral("smallScreen"), false);
    engine.rootContext()->setContextProperty(QStringLiteral("access"), arguments);
    engine.load(QUrl(QStringLiteral("qrc:/Main.qml")));
    return engine.rootObjects().isEmpty() ? 1 : application.exec();
}
