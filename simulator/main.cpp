// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include <QGuiApplication>
#include <QTextStream>

#include <optional>

#include "simulator/DemoHouse.h"
#include "simulator/FaultConsole.h"
#include "simulator/LineReader.h"
#include "simulator/LoginPassword.h"
#include "simulator/MusicServerSimulator.h"
#include "simulator/SignalWatcher.h"
#include "simulator/SimulatorOptions.h"
#include "simulator/WireTrace.h"

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

void obey(FaultConsole *console, const QString &line)
{
    const QString answer = console->carryOut(line);
    if (!answer.isEmpty())
        tell(answer);
}

void obeyLines(const LineReader &lines, FaultConsole *console)
{
    QObject::connect(&lines, &LineReader::lineRead, console,
                     [console](const QString &line) { obey(console, line); });
    QObject::connect(&lines, &LineReader::lineDropped, console, [](int bytes) {
        tell(QStringLiteral("A line of more than %1 bytes was passed over.").arg(bytes));
    });
}

// Names the one who may log in, if the options do; a sentence when the password cannot be had.
QString restrictLogin(DeviceSimulator *device, const SimulatorOptions &options)
{
    QString error;
    if (!options.user.isEmpty())
        device->setCredentials(options.user, loginPassword(options.passwordFile, &error));
    return error;
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
    const QString noPassword = restrictLogin(house.device(), options);
    if (!noPassword.isEmpty())
        return complain(noPassword, statusUsage);
    if (!options.mopidyHost.isEmpty())
        house.setRealServer(options.mopidyHost, options.mopidyPort);
    house.setSize(options.outputs, options.tracks);
    if (!house.start(options.port))
        return complain(house.errorText(), statusFailed);
    FaultConsole console(&house);
    QObject::connect(&console, &FaultConsole::quitRequested, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    const QString wrongState = options.stateFile.isEmpty() ? QString()
                                                           : console.carryOutFile(options.stateFile);
    if (!wrongState.isEmpty())
        return complain(wrongState, statusUsage);
    std::optional<WireTrace> trace;
    if (options.trace)
        QObject::connect(&trace.emplace(&house), &WireTrace::passed, &application, tell);
    printAddresses(house);
    const LineReader lines;
    obeyLines(lines, &console);
    return QCoreApplication::exec();
}
