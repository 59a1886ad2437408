// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "soak/House.h"
#include "soak/Measure.h"
#include "soak/SoakedClient.h"

#include "support/Text.h"
#include "support/Waiting.h"

#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

// The soak: soak [ROUNDS]. Exits with 1 when memory grows beyond a limit between the first and the last tenth of the
// rounds, or when a screen does not come. What precedes the first tenth fills caches that have a bound.

namespace {

constexpr double limit = 2;      // percent, of resident memory
constexpr int longRun = 2000;    // rounds; in less, the allocator alone moves it by more than that, so
constexpr double shortLimit = 3; // percent, of what is allocated when the collector has been
constexpr int warmUpRounds = 150;
constexpr int replacements = 20; // of the players, after the rounds

int fail(const char *what)
{
    std::fprintf(stderr, "soak: %s\n", what);
    return 1;
}

void tell(const QString &what)
{
    std::printf("%s\n", qPrintable(what));
    std::fflush(stdout);
}

// Changes the screen twice in a tenth at least, so that all tenths end on the same one.
bool roundWithScreens(SoakedClient *client, int number, int tenth)
{
    const int between = qBound(1, tenth / 2, 50);
    const int place = number % (2 * between);
    if (place == between && !client->goToPlaylists())
        return false;
    if (place == 0 && number > 0 && !client->goToQueue())
        return false;
    return client->round();
}

// The least of a few looks, as now and then something is under way.
Measure atRest(SoakedClient *client)
{
    Measure least;
    for (int i = 0; i < 4; ++i) {
        client->collectGarbage();
        const Measure seen = Measure::now();
        if (!least.samples || seen.allocated < least.allocated)
            least = seen;
    }
    return least;
}

// Players that a repeated list of sources replaces stay connected, as they must; what that costs is told apart.
bool tellOfReplacedPlayers(SoakedClient *client, QProcess *house)
{
    const Measure before = Measure::now();
    for (int i = 0; i < replacements; ++i) {
        const HalvoraPlayer *former = client->player();
        house->write("sources\n");
        if (!Waiting::comes([&] { return client->player() && client->player() != former; })
            || !client->round())
            return false;
    }
    const Measure after = Measure::now();
    tell("a replaced player:   %1 KiB, %2 objects, %3 descriptors"_s
             .arg((after.resident - before.resident) * 1024 / replacements, 0, 'f', 0)
             .arg((after.objects - before.objects) / replacements, 0, 'f', 0)
             .arg((after.files - before.files) / replacements, 0, 'f', 1));
    return true;
}

int soak(int rounds, QProcess *house)
{
    house->start(QCoreApplication::applicationFilePath(), {"--house"_s});
    if (!house->waitForReadyRead())
        return fail("the peers did not start");
    (void)Measure::now(); // begins the count of objects
    SoakedClient client(house->readAll().trimmed().toInt());
    if (!client.openPlayer(Catalogue(1).track(0)))
        return fail("the player screen did not come");
    const int tenth = qMax(1, rounds / 10);
    Measure first;
    Measure last;
    Measure sum;
    for (int number = 0; number < warmUpRounds + 10 * tenth; ++number) {
        if (!roundWithScreens(&client, number, tenth))
            return fail(qPrintable("round %1 did not end"_s.arg(number)));
        if (number < warmUpRounds)
            continue;
        sum.add(Measure::now());
        if (sum.samples < tenth)
            continue;
        last = atRest(&client);
        last.resident = sum.mean().resident;
        first = first.samples ? first : last;
        tell("to round %1:  "_s.arg(number + 1 - warmUpRounds, 6) + last.text());
        sum = {};
    }
    const auto growth = [&](double Measure::*what) { return 100 * (last.*what - first.*what) / first.*what; };
    const double resident = growth(&Measure::resident);
    const double allocated = growth(&Measure::allocated);
    tell("growth, first to last tenth: resident %1 %, allocated %2 %"_s.arg(resident, 0, 'f', 2)
             .arg(allocated, 0, 'f', 2));
    const bool isBounded = rounds >= longRun ? resident < limit : allocated < shortLimit;
    if (!tellOfReplacedPlayers(&client, house))
        return fail("a repeated list of sources made no new player");
    return isBounded ? 0 : fail("memory grows");
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_RUNTIME_DIR", home.path().toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == "--house"_s) {
        House house;
        return house.start() ? QCoreApplication::exec() : fail("the peers cannot listen");
    }
    QLoggingCategory::setFilterRules("qml.debug=false"_s);
    const int rounds = arguments.size() > 1 ? arguments.at(1).toInt() : 300;
    if (rounds < 10)
        return fail("soak [ROUNDS]: at least 10 rounds");
    QProcess house;
    house.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const int status = soak(rounds, &house);
    house.closeWriteChannel();
    house.waitForFinished();
    return status;
}
