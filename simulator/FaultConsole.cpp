// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/FaultConsole.h"

#include "simulator/DemoHouse.h"
#include "simulator/MusicServerSimulator.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <limits>
#include <optional>
#include <vector>

namespace {

// A sentence on why it cannot be done, "" when it is done; nothing when the value is none for this command.
using Answer = std::optional<QString>;
const Answer done = QString();
const Answer misunderstood = std::nullopt;

// What a line does with its value.
using Action = std::function<Answer(DemoHouse *, const QString &value)>;

struct Command
{
    const char *word;
    const char *value; // as help shows it
    const char *text;
    Action act;
};

void eachServer(DemoHouse *house, const std::function<void(MusicServerSimulator *)> &visit)
{
    for (MusicServerSimulator *server : house->musicServers())
        visit(server);
}

template<int least, int most = std::numeric_limits<int>::max()>
std::optional<int> numberIn(const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

std::optional<bool> flagIn(const QString &text)
{
    const bool isOn = text == QLatin1String("on");
    return isOn || text == QLatin1String("off") ? std::optional(isOn) : std::nullopt;
}

// "on" or "off" for a flag of any of the fault structures.
template<typename Set>
Action onOff(Set set)
{
    return [set](DemoHouse *house, const QString &value) {
        const std::optional<bool> on = flagIn(value);
        if (!on)
            return misunderstood;
        set(house, *on);
        return done;
    };
}

// A whole number; "off" stands for `off`.
template<typename Set>
Action number(Set set, int off)
{
    return [set, off](DemoHouse *house, const QString &value) {
        const std::optional<int> wanted = value == QLatin1String("off") ? off : numberIn<0>(value);
        if (!wanted)
            return misunderstood;
        set(house, *wanted);
        return done;
    };
}

Action link(bool LinkFaults::*flag)
{
    return onOff([flag](DemoHouse *house, bool on) { house->device()->faults().*flag = on; });
}

Action link(int LinkFaults::*value, int off)
{
    return number([value](DemoHouse *house, int wanted) { house->device()->faults().*value = wanted; }, off);
}

Action music(bool ServerFaults::*flag)
{
    return onOff([flag](DemoHouse *house, bool on) {
        eachServer(house, [=](MusicServerSimulator *server) { server->faults().*flag = on; });
    });
}

Action music(int ServerFaults::*value, int off)
{
    return number(
        [value](DemoHouse *house, int wanted) {
            eachServer(house, [=](MusicServerSimulator *server) { server->faults().*value = wanted; });
        },
        off);
}

// The covers of the music servers, and those of AirPlay.
void eachArtwork(DemoHouse *house, const std::function<void(ArtworkFaults &)> &change)
{
    change(house->artwork()->faults());
    eachServer(house, [&](MusicServerSimulator *server) { change(server->artwork()->faults()); });
}

Action pictures(bool ArtworkFaults::*flag)
{
    return onOff([flag](DemoHouse *house, bool on) {
        eachArtwork(house, [=](ArtworkFaults &faults) { faults.*flag = on; });
    });
}

Action pictures(int ArtworkFaults::*value, int off)
{
    return number(
        [value](DemoHouse *house, int wanted) {
            eachArtwork(house, [=](ArtworkFaults &faults) { faults.*value = wanted; });
        },
        off);
}

// Something at the device that a person can turn or switch.
struct Part
{
    const char *name;
    bool (*isThere)(DeviceState state, int index);
};

constexpr Part output{"output", [](DeviceState state, int index) { return state.output(index) != nullptr; }};
constexpr Part source{"source", [](DeviceState state, int index) { return state.source(index) != nullptr; }};

// "" when there is such a part, otherwise the sentence.
QString absence(DemoHouse *house, const Part &part, int index)
{
    return part.isThere(house->device()->state(), index)
        ? QString()
        : QStringLiteral("There is no %1 %2.").arg(QLatin1String(part.name)).arg(index);
}

// The part's index and a value. The device itself says nothing about a part that it does not have.
template<typename Value>
Action at(const Part &part, std::optional<Value> (*read)(const QString &),
          void (DeviceSimulator::*change)(int index, Value value))
{
    return [=](DemoHouse *house, const QString &value) {
        const std::optional<int> index = numberIn<0>(value.section(QLatin1Char(' '), 0, 0));
        const std::optional<Value> wanted = read(value.section(QLatin1Char(' '), 1));
        if (!index || !wanted)
            return misunderstood;
        const QString missing = absence(house, part, *index);
        if (missing.isEmpty())
            (house->device()->*change)(*index, *wanted);
        return Answer(missing);
    };
}

Answer route(DemoHouse *house, const QString &value)
{
    const std::optional<int> wanted = numberIn<-1>(value.section(QLatin1Char(' '), 1));
    const QString missing = wanted.value_or(-1) < 0 ? QString() : absence(house, source, *wanted);
    return missing.isEmpty() ? at(output, numberIn<-1>, &DeviceSimulator::setRoute)(house, value) : missing;
}

Action always(const std::function<void(DemoHouse *)> &act)
{
    return [act](DemoHouse *house, const QString &value) {
        if (!value.isEmpty())
            return misunderstood;
        act(house);
        return done;
    };
}

Answer acceptLinks(DemoHouse *house, const QString &value)
{
    DeviceSimulator *device = house->device();
    if (!value.isEmpty())
        return misunderstood;
    if (device->listenAgain())
        return done;
    return QStringLiteral("The device cannot listen on port %1 again: %2.")
        .arg(QString::number(device->port()), device->errorString());
}

const std::vector<Command> &commands()
{
    static const std::vector<Command> all{
        {"refuse-login", "on|off", "the device refuses every login", link(&LinkFaults::refuseLogin)},
        {"ignore-login", "on|off", "the device answers no login", link(&LinkFaults::ignoreLogin)},
        {"silent", "on|off", "the device says nothing once a client has joined",
         link(&LinkFaults::silentAfterJoin)},
        {"close-on-accept", "on|off", "the device ends each new connection",
         link(&LinkFaults::closeOnAccept)},
        {"close-after", "BYTES|off", "the device ends a connection behind so many bytes",
         link(&LinkFaults::closeAfterBytes, -1)},
        {"byte-by-byte", "on|off", "the device writes single bytes", link(&LinkFaults::byteByByte)},
        {"wrong-padding", "on|off", "the device pads its messages wrongly", link(&LinkFaults::wrongPadding)},
        {"link-delay", "MS|off", "the device reads messages late", link(&LinkFaults::answerDelayMs, 0)},
        {"link-drop", "", "ends every link now",
         always([](DemoHouse *house) { house->device()->dropAll(); })},
        {"link-refuse", "", "the device takes no more connections",
         always([](DemoHouse *house) { house->device()->stopListening(); })},
        {"link-accept", "", "it takes connections again", acceptLinks},
        {"music-silent", "on|off", "music servers do not reply", music(&ServerFaults::noReply)},
        {"music-error", "on|off", "music servers reply with errors", music(&ServerFaults::errorReply)},
        {"music-double", "on|off", "music servers reply twice", music(&ServerFaults::doubleReply)},
        {"music-garbage", "on|off", "music servers reply with no JSON", music(&ServerFaults::replyNoJson)},
        {"music-delay", "MS|off", "music servers reply late", music(&ServerFaults::replyDelayMs, 0)},
        {"music-drop", "", "ends every connection to a music server now", always([](DemoHouse *house) {
             eachServer(house, [](MusicServerSimulator *server) { server->dropAll(); });
         })},
        {"pictures-missing", "on|off", "there are no pictures", pictures(&ArtworkFaults::notFound)},
        {"pictures-broken", "on|off", "pictures are cut off", pictures(&ArtworkFaults::truncatedBody)},
        {"pictures-delay", "MS|off", "pictures come late", pictures(&ArtworkFaults::delayMs, 0)},
        {"volume", "OUTPUT 0-100", "somebody turns the volume",
         at(output, numberIn<0, 100>, &DeviceSimulator::setVolume)},
        {"mute", "OUTPUT on|off", "somebody mutes the output", at(output, flagIn, &DeviceSimulator::setMute)},
        {"route", "OUTPUT SOURCE", "somebody changes the source, -1 for none", route},
        {"source-volume", "SOURCE 0-100", "somebody turns the volume of a source",
         at(source, numberIn<0, 100>, &DeviceSimulator::setSourceVolume)},
    };
    return all;
}

// A line of the list.
QString described(const QString &call, const QString &text)
{
    constexpr int column = 27;
    return QStringLiteral("  %1%2").arg(call.trimmed(), -column).arg(text);
}

} // namespace

FaultConsole::FaultConsole(DemoHouse *house, QObject *parent) : QObject(parent), m_house(house) { }

QString FaultConsole::help() const
{
    QString text;
    for (const Command &command : commands())
        text += described(QLatin1String(command.word) + QLatin1Char(' ') + QLatin1String(command.value),
                          QLatin1String(command.text))
            + QLatin1Char('\n');
    return text + described(QStringLiteral("help"), QStringLiteral("this list")) + QLatin1Char('\n')
        + described(QStringLiteral("quit"), QStringLiteral("ends the simulator"));
}

QString FaultConsole::carryOut(const QString &line)
{
    const QString wanted = line.simplified();
    const QString word = wanted.section(QLatin1Char(' '), 0, 0);
    if (word.isEmpty() || word.startsWith(QLatin1Char('#')))
        return {};
    if (word == QLatin1String("help"))
        return help();
    if (word == QLatin1String("quit")) {
        Q_EMIT quitRequested();
        return {};
    }
    const auto &all = commands();
    const auto command = std::find_if(
        all.begin(), all.end(), [&](const Command &known) { return word == QLatin1String(known.word); });
    if (command == all.end())
        return QStringLiteral("\"%1\" is no command; \"help\" lists them.").arg(word);
    if (const Answer answer = command->act(m_house, wanted.section(QLatin1Char(' '), 1)))
        return *answer;
    const QString value = QLatin1String(command->value);
    return value.isEmpty() ? QStringLiteral("\"%1\" takes no value.").arg(word)
                           : QStringLiteral("\"%1\" wants %2.").arg(word, value);
}

QString FaultConsole::carryOutFile(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("The file \"%1\" cannot be read: %2.").arg(name, file.errorString());
    QTextStream lines(&file);
    lines.setCodec("UTF-8");
    for (int number = 1; !lines.atEnd(); ++number) {
        const QString answer = carryOut(lines.readLine());
        if (!answer.isEmpty())
            return QStringLiteral("%1:%2: %3").arg(name, QString::number(number), answer);
    }
    return {};
}
