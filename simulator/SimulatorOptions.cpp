// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/SimulatorOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <functional>

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

void readCount(const QString &text, const QString &option, int most, int *count, QString *error)
{
    bool isNumber = false;
    *count = text.toInt(&isNumber);
    if (!isNumber || *count < 1 || *count > most)
        *error = QStringLiteral("\"%1\" is no number from 1 to %2: give one after --%3.")
                     .arg(text, QString::number(most), option);
}

void readUser(const QString &text, SimulatorOptions &options)
{
    // The link has no escape for its separator.
    if (text.isEmpty() || text.contains(QLatin1Char('|')))
        options.error = QStringLiteral("\"%1\" is no user name: give one without \"|\" after --user.")
                            .arg(text);
    options.user = text;
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
    const QCommandLineOption outputsOption(QStringLiteral("outputs"),
                                           QStringLiteral("Number of the device's outputs, 1 to 64."),
                                           QStringLiteral("N"));
    const QCommandLineOption tracksOption(
        QStringLiteral("tracks"), QStringLiteral("Number of each music server's tracks, 1 to 1000000."),
        QStringLiteral("N"));
    const QCommandLineOption traceOption(
        QStringLiteral("trace"),
        QStringLiteral("Print what passes on the wire, deciphered: > to the client, < from it."));
    const QCommandLineOption stateOption(
        QStringLiteral("state"),
        QStringLiteral("Carry out the commands in this file at the start, such as \"volume 1 55\"."),
        QStringLiteral("FILE"));
    const QCommandLineOption userOption(
        QStringLiteral("user"),
        QStringLiteral("Let this user alone log in; without this option everybody can."),
        QStringLiteral("NAME"));
    const QCommandLineOption passwordOption(QStringLiteral("password-file"),
                                            QStringLiteral("File whose first line is the user's password."),
                                            QStringLiteral("FILE"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "A simulated Halvora house on 127.0.0.1: a device, its music servers and their cover art.\n"
        "Prints each address on a line of its own and runs until it is interrupted. While it runs it reads\n"
        "commands from its standard input, a line each: \"help\" lists them, such as \"refuse-login on\".\n\n"
        "The password of --user is read from --password-file, else from the environment variable\n"
        "HALVORA_PASSWORD."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Displays this help."));
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({help, portOption, userOption, passwordOption, stateOption, mopidyOption, outputsOption,
                       tracksOption, traceOption});

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
    else if (parser.isSet(passwordOption) && !parser.isSet(userOption))
        options.error = QStringLiteral("--password-file can only be used with --user.");

    const struct
    {
        const QCommandLineOption &option;
        std::function<void(const QString &)> read;
    } readers[] = {
        {portOption, [&](const QString &text) { readPort(text, options); }},
        {mopidyOption, [&](const QString &text) { readMopidy(text, options); }},
        {outputsOption,
         [&](const QString &text) {
             readCount(text, QStringLiteral("outputs"), 64, &options.outputs, &options.error);
         }},
        {tracksOption,
         [&](const QString &text) {
             readCount(text, QStringLiteral("tracks"), 1000000, &options.tracks, &options.error);
         }},
        {userOption, [&](const QString &text) { readUser(text, options); }},
    };
    for (const auto &reader : readers) {
        if (options.error.isEmpty() && parser.isSet(reader.option))
            reader.read(parser.value(reader.option));
    }
    options.passwordFile = parser.value(passwordOption);
    options.stateFile = parser.value(stateOption);
    options.trace = parser.isSet(traceOption);
    return options;
}
