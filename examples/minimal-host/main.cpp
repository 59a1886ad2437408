// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0
#include <QGuiApplication>
#include <QPluginLoader>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQmlExtensionPlugin>
#include <QSettings>
#include <QUuid>

int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("Kestrum"));
    QCoreApplication::setApplicationName(QStringLiteral("minimal-host"));
    QGuiApplication application(argc, argv);
    QStringList access = application.arguments().mid(1) << qEnvironmentVariable("HALVORA_PASSWORD");
    if (access.size() != 5)
        return qCritical("usage: HALVORA_PASSWORD=... minimal-host LIBRARY HOST PORT USER"), 2;
    QPluginLoader library(access.takeFirst());
    auto *client = qobject_cast<QQmlExtensionPlugin *>(library.instance());
    if (!client)
        return qCritical("no client library: %s", qPrintable(library.errorString())), 1;
    if (QSettings settings; !settings.contains(QStringLiteral("uniqueID"))) // what the device knows us by
        settings.setValue(QStringLiteral("uniqueID"), QUuid::createUuid().toString(QUuid::WithoutBraces));
    QQmlApplicationEngine engine;
    client->initializeEngine(&engine, "com.kestrum.halvoraint");
    engine.rootContext()->setContextProperty(QStringLiteral("smallScreen"), false);
    engine.rootContext()->setContextProperty(QStringLiteral("access"), access);
    engine.load(QUrl(QStringLiteral("qrc:/Main.qml")));
    return engine.rootObjects().isEmpty() ? 1 : application.exec();
}
