// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QTextStream>

#include "simulator/DemoHouse.h"
#include "simulator/MusicServerSimulator.h"
#include "simulator/SignalWatcher.h"
#include "simulator/SimulatorOptions.h"

namespace {

Q_LOGGING_CATEGORY(log, "halvora.simulator", QtWarningMsg)

constexpr int statusFailed = 1;
constexpr int statusUsage = 2;

int complain(const QString &sentence, int status)
{
    QTextStream(stderr) << QStringLiteral("halvora-simulator: ") << sentence << Qt::endl;
    return status;
}

void printAddresses(DemoHouse &house)
{
    QTextStream out(stdout);
    out << "device " << house.deviceHost() << ':' << house.devicePort() << Qt::endl;
    const QMap<int, MusicServerSimulator *> &servers = house.musicServers();
    for (auto server = servers.cbegin(); server != servers.cend(); ++server)
        out << "music " << server.key() << ' ' << server.value()->host() << ':' << server.value()->port()
            << Qt::endl;
    out << "artwork 127.0.0.1:" << house.artwork()->port() << Qt::endl;
}

void logTraffic(DemoHouse &house)
{
    QObject::connect(house.device(), &DeviceSimulator::messageReceived, house.device(),
                     [](const QString &message) { qCDebug(log) << "device:" << message; });
    for (MusicServerSimulator *server : house.musicServers()) {
        QObject::connect(server, &MusicServerSimulator::requestReceived, server,
                         [server](const QString &method) { qCDebug(log) << server->port() << method; });
    }
}

// Read before there is a GUI application, so that a wrong option is all that is complained about.
SimulatorOptions readOptions(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("halvora-simulator"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HALVORA_VERSION));
    return SimulatorOptions::parse(QCoreApplication::arguments());
}

} // namespace

int main(int argc, char *argv[])
{
    const SimulatorOptions options = readOptions(argc, argv);
    if (!options.error.isEmpty())
        return complain(options.error, statusUsage);
    if (!options.answer.isEmpty()) {
        QTextStream(stdout) << options.answer;
        return 0;
    }

    // Covers are drawn with fonts, which takes a GUI application, but nothing is ever shown.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const SignalWatcher watcher;
    QObject::connect(&watcher, &SignalWatcher::stopRequested, &application, &QCoreApplication::quit);
    DemoHouse house;
    if (!options.mopidyHost.isEmpty())
        house.setRealServer(options.mopidyHost, options.mopidyPort);
    if (!house.start(options.port))
        return complain(house.errorText(), statusFailed);
    logTraffic(house);
    printAddresses(house);
    return QCoreApplication::exec();
}
