// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QTimer>

// empty_window: what any program of the host's modules costs until it shows something. Ends by itself after a
// minute.

int main(int argc, char **argv)
{
    constexpr int longestLife = 60 * 1000; // milliseconds
    const QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine(QUrl(QStringLiteral("qrc:/benchmarks/empty.qml")));
    if (engine.rootObjects().isEmpty())
        return 1;
    QTimer::singleShot(longestLife, &application, &QCoreApplication::quit);
    return QGuiApplication::exec();
}
