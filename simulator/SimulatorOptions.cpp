// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/SimulatorOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

// -1 for anything that is no port.
int portOf(const QString &text, int least)
{
    bool isNumber = false;
    const int port = text.toInt(&isNumber);
    return isNumber && port >= least && port <= 65535 ? port : -1;
}

void readPort(const QString &text, SimulatorOptions &options)
{
    const int port = portOf(text, 0);
    if (port < 0)
        options.error = QStringLiteral("\"%1\" is no port: give a number from 0 to 65535 after --port.")
                            .arg(text);
    else
        options.port = quint16(port);
}

void readMopidy(const QString &text, SimulatorOptions &options)
{
    const int colon = text.lastIndexOf(QLatin1Char(':'));
    const QString host = text.left(colon);
    const int port = portOf(text.mid(colon + 1), 1);
    // The link to the client has no escape for its separators.
    const bool isSendable = !host.contains(QLatin1Char('|')) && !host.contains(QLatin1Char('@'));
    if (colon < 1 || port < 0 || !isSendable) {
        options.error = QStringLiteral("\"%1\" is no server: give HOST:PORT after --mopidy, "
                                       "such as 127.0.0.1:6680.")
                            .arg(text);
        return;
    }
    options.mopidyHost = host;
    options.mopidyPort = quint16(port);
}

QString sentence(QString text)
{
    return text.endsWith(QLatin1Char('.')) ? text : text + QLatin1Char('.');
}

} // namespace

SimulatorOptions SimulatorOptions::parse(const QStringList &arguments)
{
    const QCommandLineOption portOption(
        QStringLiteral("port"), QStringLiteral("Port of the device; 0, the default, lets the system choose."),
        QStringLiteral("N"));
    const QCommandLineOption mopidyOption(
        QStringLiteral("mopidy"),
        QStringLiteral("Announce this Mopidy server as the player of the first source."),
        QStringLiteral("HOST:PORT"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "A simulated Halvora house on 127.0.0.1: a device, its music servers and their cover art.\n"
        "Prints each address on a line of its own and runs until it is interrupted."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Displays this help."));
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({help, portOption, mopidyOption});

    SimulatorOptions options;
    if (!parser.parse(arguments))
        options.error = sentence(parser.errorText());
    else if (parser.isSet(help))
        options.answer = parser.helpText();
    else if (parser.isSet(version))
        options.answer = QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(),
                                                       QCoreApplication::applicationVersion());
    else if (!parser.positionalArguments().isEmpty())
        options.error = QStringLiteral("\"%1\" is no option.").arg(parser.positionalArguments().constFirst());
    if (options.error.isEmpty() && parser.isSet(portOption))
        readPort(parser.value(portOption), options);
    if (options.error.isEmpty() && parser.isSet(mopidyOption))
        readMopidy(parser.value(mopidyOption), options);
    return options;
}
