// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostOptions.h"

#include "HostLanguages.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>

namespace {

const QString help = QStringLiteral("help");
const QString version = QStringLiteral("version");
const QString demo = QStringLiteral("demo");
const QString device = QStringLiteral("device");
const QString user = QStringLiteral("user");
const QString passwordFile = QStringLiteral("password-file");
const QString mopidy = QStringLiteral("mopidy");
const QString language = QStringLiteral("language");
const QString smallScreen = QStringLiteral("small-screen");
const QString size = QStringLiteral("size");
const QString fullScreen = QStringLiteral("full-screen");
const QString tour = QStringLiteral("tour");

constexpr QSize smallest(340, 520); // the window's own minimum

void describe(QCommandLineParser &parser)
{
    parser.setApplicationDescription(HostOptions::tr(
        "Desktop host of the Halvora client: rooms, sources and music of one device. Without --demo or\n"
        "--device it shows the device that was chosen last, or asks for one.\n\n"
        "The password of --device is read from --password-file, else from the environment variable\n"
        "HALVORA_PASSWORD, else from a prompt on the terminal."));
    const QString address = QStringLiteral("HOST:PORT");
    parser.addOptions({
        {{QStringLiteral("h"), help}, HostOptions::tr("Show this help.")},
        {{QStringLiteral("v"), version}, HostOptions::tr("Show the version.")},
        {demo, HostOptions::tr("Show a simulated house; nothing else is needed.")},
        {device, HostOptions::tr("Connect to the device at this address."), address},
        {user, HostOptions::tr("User name at the device."), QStringLiteral("NAME")},
        {passwordFile, HostOptions::tr("File whose first line is the password."), QStringLiteral("FILE")},
        {mopidy, HostOptions::tr("With --demo: offer this Mopidy server as a source."), address},
        {language, HostOptions::tr("en, de or it; the one of the settings by default, else the system's."),
         QStringLiteral("CODE")},
        {smallScreen, HostOptions::tr("Lay dialogs out for a small screen.")},
        {fullScreen, HostOptions::tr("Take the whole screen; F11 gives it back.")},
        {size, HostOptions::tr("Size of the window in pixels, for example 360x640."),
         QStringLiteral("WIDTHxHEIGHT")},
        {tour,
         HostOptions::tr(
             "Walk through the screens, write a picture of each to this folder and end; a warning on\n"
             "the way is a failure. Outside of the plain --demo: the first four screens."),
         QStringLiteral("DIR")},
    });
}

/// Invalid for what is no size, or a smaller one than the window takes.
QSize toSize(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{3,4})x(\\d{3,4})$"));
    const QRegularExpressionMatch match = form.match(text);
    const QSize found(match.captured(1).toInt(), match.captured(2).toInt());
    return found.expandedTo(smallest) == found ? found : QSize();
}

/// One sentence on the first thing that does not fit together, or an empty text.
QString complaint(const QCommandLineParser &parser)
{
    const bool toDevice = parser.isSet(device);
    const QStringList rest = parser.positionalArguments();
    const QString endpoint = HostOptions::tr("--%1 needs HOST:PORT, for example %2, not \"%3\".");
    const struct
    {
        bool wrong;
        QString sentence;
    } rules[] = {
        {!rest.isEmpty(), HostOptions::tr("The argument \"%1\" is not known.").arg(rest.value(0))},
        {parser.isSet(mopidy) && !parser.isSet(demo),
         HostOptions::tr("--mopidy can only be used with --demo.")},
        {toDevice && parser.isSet(demo), HostOptions::tr("Use either --demo or --device, not both.")},
        {!toDevice && (parser.isSet(user) || parser.isSet(passwordFile)),
         HostOptions::tr("--user and --password-file can only be used with --device.")},
        {toDevice && !Endpoint::parse(parser.value(device)),
         endpoint.arg(device, QStringLiteral("192.168.1.20:5000"), parser.value(device))},
        {toDevice && parser.value(user).isEmpty(), HostOptions::tr("--device needs --user NAME as well.")},
        {parser.value(user).contains(QLatin1Char('|')), HostOptions::tr("--user cannot hold \"|\".")},
        {parser.isSet(mopidy) && !Endpoint::parse(parser.value(mopidy)),
         endpoint.arg(mopidy, QStringLiteral("127.0.0.1:6680"), parser.value(mopidy))},
        {parser.isSet(language) && !hostLanguages().contains(parser.value(language)),
         HostOptions::tr("--language knows en, de and it, not \"%1\".").arg(parser.value(language))},
        {parser.isSet(size) && !toSize(parser.value(size)).isValid(),
         HostOptions::tr("--size needs WIDTHxHEIGHT from %1x%2 on, for example 360x640, not \"%3\".")
             .arg(smallest.width())
             .arg(smallest.height())
             .arg(parser.value(size))},
        {parser.isSet(tour) && parser.value(tour).isEmpty(),
         HostOptions::tr("--tour needs the name of a folder.")},
        {parser.isSet(tour) && !toDevice && !parser.isSet(demo),
         HostOptions::tr("--tour can only be used with --demo or --device.")},
    };
    for (const auto &rule : rules) {
        if (rule.wrong)
            return rule.sentence;
    }
    return {};
}

HostOptions ending(HostOptions::Next next, const QString &text)
{
    HostOptions options;
    options.next = next;
    options.text = text;
    return options;
}

/// Qt's own complaint as a sentence.
QString sentence(QString text)
{
    return text.endsWith(QLatin1Char('.')) ? text : text + QLatin1Char('.');
}

} // namespace

HostOptions HostOptions::read(const QStringList &arguments)
{
    QCommandLineParser parser;
    describe(parser);
    const bool parsed = parser.parse(arguments);
    if (!parsed)
        return ending(Next::Refuse, sentence(parser.errorText()));
    if (parser.isSet(help))
        return ending(Next::Tell, parser.helpText());
    if (parser.isSet(version)) {
        return ending(Next::Tell,
                      QCoreApplication::applicationName() + QLatin1Char(' ')
                          + QCoreApplication::applicationVersion() + QLatin1Char('\n'));
    }
    const QString wrong = complaint(parser);
    if (!wrong.isEmpty())
        return ending(Next::Refuse, wrong);

    HostOptions options;
    options.demo = parser.isSet(::demo);
    options.device = Endpoint::parse(parser.value(::device));
    options.user = parser.value(::user);
    options.passwordFile = parser.value(::passwordFile);
    options.mopidy = Endpoint::parse(parser.value(::mopidy));
    options.language = parser.value(::language);
    options.smallScreen = parser.isSet(::smallScreen);
    options.fullScreen = parser.isSet(::fullScreen);
    options.size = toSize(parser.value(::size));
    options.tour = parser.value(::tour);
    return options;
}
