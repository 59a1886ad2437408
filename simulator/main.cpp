// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include <QGuiApplication>
#include <QTextStream>

#include "simulator/DemoHouse.h"
#include "simulator/FaultConsole.h"
#include "simulator/LineReader.h"
#include "simulator/MusicServerSimulator.h"
#include "simulator/SignalWatcher.h"
#include "simulator/SimulatorOptions.h"

namespace {

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

void tell(const QString &text)
{
    QTextStream(stdout) << text << Qt::endl;
}

// Who has the digest of a login can log in with it, and traces get shown around.
QString withoutDigest(const QString &text)
{
    constexpr int digestAt = 3;
    QStringList fields = text.split(QLatin1Char('|'));
    if (fields.first() != QLatin1String("CONNECT") || fields.size() != 6)
        return text;
    fields[digestAt] = QStringLiteral("(digest)");
    return fields.join(QLatin1Char('|'));
}

// Each text on a line of its own, behind who speaks and in which direction.
template<typename Peer>
void traceTexts(Peer *peer, const QString &name, void (Peer::*received)(const QString &),
                void (Peer::*sent)(const QString &))
{
    QObject::connect(peer, received, peer,
                     [name](const QString &text) { tell(name + QLatin1String(" < ") + withoutDigest(text)); });
    QObject::connect(peer, sent, peer,
                     [name](const QString &text) { tell(name + QLatin1String(" > ") + text); });
}

void trace(DemoHouse &house)
{
    traceTexts(house.device(), QStringLiteral("device"), &DeviceSimulator::messageReceived,
               &DeviceSimulator::messageSent);
    const QMap<int, MusicServerSimulator *> &servers = house.musicServers();
    for (auto server = servers.cbegin(); server != servers.cend(); ++server)
        traceTexts(server.value(), QStringLiteral("music %1").arg(server.key()),
                   &MusicServerSimulator::textReceived, &MusicServerSimulator::textSent);
}

void obey(FaultConsole *console, const QString &line)
{
    const QString answer = console->carryOut(line);
    if (!answer.isEmpty())
        tell(answer);
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
    house.setSize(options.outputs, options.tracks);
    if (!house.start(options.port))
        return complain(house.errorText(), statusFailed);
    if (options.trace)
        trace(house);
    printAddresses(house);
    FaultConsole console(&house);
    const LineReader lines;
    QObject::connect(&lines, &LineReader::lineRead, &console,
                     [&](const QString &line) { obey(&console, line); });
    QObject::connect(&console, &FaultConsole::quitRequested, &application, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
