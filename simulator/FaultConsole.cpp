// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/FaultConsole.h"

#include "simulator/DemoHouse.h"
#include "simulator/MusicServerSimulator.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace {

// What a line does with its value; false when the value is none for it.
using Action = std::function<bool(DemoHouse *, const QString &value)>;

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

// "on" or "off" for a flag of any of the fault structures.
template<typename Set>
Action onOff(Set set)
{
    return [set](DemoHouse *house, const QString &value) {
        const bool on = value == QLatin1String("on");
        if (!on && value != QLatin1String("off"))
            return false;
        set(house, on);
        return true;
    };
}

// A whole number; "off" stands for `off`.
template<typename Set>
Action number(Set set, int off)
{
    return [set, off](DemoHouse *house, const QString &value) {
        bool isNumber = value == QLatin1String("off");
        const int wanted = isNumber ? off : value.toInt(&isNumber);
        if (isNumber && wanted >= off)
            set(house, wanted);
        return isNumber && wanted >= off;
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

// "OUTPUT NUMBER"
Action atDevice(void (DeviceSimulator::*change)(int output, int value))
{
    return [change](DemoHouse *house, const QString &value) {
        bool isOutput = false;
        bool isNumber = false;
        const int output = value.section(QLatin1Char(' '), 0, 0).toInt(&isOutput);
        const int wanted = value.section(QLatin1Char(' '), 1).toInt(&isNumber);
        DeviceState state = house->device()->state();
        const bool known = isOutput && isNumber && state.output(output);
        if (known)
            (house->device()->*change)(output, wanted);
        return known;
    };
}

Action always(const std::function<void(DemoHouse *)> &act)
{
    return [act](DemoHouse *house, const QString &value) {
        if (value.isEmpty())
            act(house);
        return value.isEmpty();
    };
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
        {"link-accept", "", "it takes connections again",
         always([](DemoHouse *house) { house->device()->listenAgain(); })},
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
        {"volume", "OUTPUT 0-100", "somebody turns the volume", atDevice(&DeviceSimulator::setVolume)},
        {"route", "OUTPUT SOURCE", "somebody changes the source, -1 for none",
         atDevice(&DeviceSimulator::setRoute)},
    };
    return all;
}

} // namespace

FaultConsole::FaultConsole(DemoHouse *house, QObject *parent) : QObject(parent), m_house(house) { }

QString FaultConsole::help() const
{
    QString text;
    for (const Command &command : commands()) {
        const QString call = QLatin1String(command.word) + QLatin1Char(' ') + QLatin1String(command.value);
        text += QStringLiteral("  %1 %2\n").arg(call.trimmed(), -24).arg(QLatin1String(command.text));
    }
    return text
        + QStringLiteral("  %1 %2\n  %3 %4")
              .arg(QStringLiteral("help"), -24)
              .arg(QStringLiteral("this list"))
              .arg(QStringLiteral("quit"), -24)
              .arg(QStringLiteral("ends the simulator"));
}

QString FaultConsole::carryOut(const QString &line)
{
    const QString wanted = line.simplified();
    const QString word = wanted.section(QLatin1Char(' '), 0, 0);
    if (word.isEmpty())
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
    if (command->act(m_house, wanted.section(QLatin1Char(' '), 1)))
        return {};
    const QString value = QLatin1String(command->value);
    return value.isEmpty() ? QStringLiteral("\"%1\" takes no value.").arg(word)
                           : QStringLiteral("\"%1\" wants %2.").arg(word, value);
}
