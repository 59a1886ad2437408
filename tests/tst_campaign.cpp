// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ObjectCount.h"
#include "support/OpenFiles.h"
#include "support/Studio.h"
#include "support/Suite.h"
#include "support/WiredLink.h"
#include "support/WiredPlayer.h"

#include <array>

/**
 * What may happen to a connection, at each point of its life, for the link and for the player: whatever it was, the
 * client is back by itself, shows what its peer has, holds one connection and has sent no command twice. A player never
 * notices that its server is silent: that it bears.
 */
class TestCampaign final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void clientComesBack_data();
    void clientComesBack();
    void dumpThatEndsAnywhere();
    void repliesThatEndAnywhere();
    void thousandsOfReconnectionsLeaveNothing();
};

namespace {

constexpr int comeback = 20000; // milliseconds that recovery may take on a loaded machine
constexpr int retries = 150; // milliseconds, by which any delay before a new attempt is over; see newClient()
constexpr int silence = 400; // milliseconds: eighty ticks of a player, with a poll among them
constexpr int commandOfTheFault = 1;
constexpr int commandsBehind = 2; // numbers of those that are given from the fault on

struct Kind
{
    const char *name;
    void (*strike)(WiredClient &client);
    void (*mend)(WiredClient &client); // null: the client comes back while it lasts
    bool isSilent;                     // nothing tells the client that it is cut off
};

const Kind kinds[] = {
    {"refused",
     [](WiredClient &client) {
         client.relay.stopListening();
         client.relay.resetAll();
     },
     [](WiredClient &client) { QVERIFY(client.relay.listen()); }, false},
    {"reset", [](WiredClient &client) { client.relay.resetAll(); }, nullptr, false},
    {"closed", [](WiredClient &client) { client.relay.closeAll(); }, nullptr, false},
    {"half-open", [](WiredClient &client) { client.relay.freeze(); },
     [](WiredClient &client) { client.relay.thaw(); }, true},
    {"byte by byte",
     [](WiredClient &client) {
         client.relay.faults().byteByByte = true;
         client.relay.faults().splitPauseMs = 0;
     },
     nullptr, false},
    {"restart",
     [](WiredClient &client) {
         client.relay.resetAll();
         client.restartPeer();
     },
     nullptr, false},
};

bool isTrue(WiredClient &client)
{
    return client.mirror() == client.truth();
}

bool hasOneConnection(WiredClient &client)
{
    return client.relay.liveConnections() == 1 && client.connectionsAtPeer() == 1
        && OpenFiles::socketsTo(client.relay.port()) == 1 && client.flaw().isEmpty();
}

bool hasNoConnection(WiredClient &client)
{
    return client.relay.liveConnections() == 0 && client.connectionsAtPeer() == 0
        && OpenFiles::socketsTo(client.relay.port()) == 0;
}

// Whether the client dials within so many milliseconds.
bool dials(WiredClient &client, int time = retries)
{
    const int before = client.relay.acceptedConnections();
    return Waiting::comes([&] { return client.relay.acceptedConnections() > before; }, time);
}

// A loss may be told twice and have two attempts, by design: the second ends the first, and no third comes.
bool staysConnected(WiredClient &client)
{
    return (!dials(client) || !dials(client)) && Waiting::comes([&] { return hasOneConnection(client); });
}

// A client that never notices silence stays on its connection, shows what it has shown and sends its polls alone.
bool bearsSilence(WiredClient &client)
{
    if (dials(client)) // and what was on its way arrives meanwhile
        return false;
    const QStringList shown = client.mirror();
    const int sent = client.sentBesidePolls();
    return !dials(client, silence) && client.relay.liveConnections() == 1 && client.mirror() == shown
        && client.sentBesidePolls() == sent;
}

// Whether a command reaches the peer. One that meets a second attempt to connect is lost, by design, and not given again.
bool isHeard(WiredClient &client)
{
    constexpr int patience = 200; // milliseconds
    const int before = client.commands.size();
    for (int i = 1; i <= comeback / patience; ++i) {
        client.command(commandsBehind + i);
        if (Waiting::comes([&] { return client.commands.size() > before; }, patience))
            return true;
    }
    return false;
}

// What does not hold of a client that should be connected; waits for it. Empty when all does.
QString whatIsWrong(WiredClient &client)
{
    const auto comes = [](auto condition) { return Waiting::comes(condition, comeback); };
    const auto difference = [&client] {
        return client.mirror().join(QLatin1Char('\n')) + "\n\nin place of\n\n"_s
            + client.truth().join(QLatin1Char('\n'));
    };
    if (!comes([&] { return isTrue(client); }))
        return "it shows\n\n"_s + difference();
    client.changePeer();
    if (!comes([&] { return isTrue(client); }))
        return "a change does not arrive: it shows\n\n"_s + difference();
    if (!isHeard(client))
        return "no command arrives"_s;
    if (!comes([&] { return isTrue(client); }))
        return "behind a command it shows\n\n"_s + difference();
    if (!comes([&] { return hasOneConnection(client); }))
        return "%1 sockets, %2 connections on the wire, %3 at the peer; %4"_s
            .arg(OpenFiles::socketsTo(client.relay.port()))
            .arg(client.relay.liveConnections())
            .arg(client.connectionsAtPeer())
            .arg(client.flaw());
    QStringList commands = client.commands;
    if (commands.removeDuplicates() > 0)
        return "sent twice, of "_s + client.commands.join(QLatin1Char('\n'));
    return client.misordered.join(QLatin1Char('\n'));
}

// Starts the client and has `fault` come in that phase of its connection's life. False if it never came to that.
bool strikeIn(const QString &phase, WiredClient &client, const std::function<void()> &fault)
{
    bool struck = false;
    QObject guard;
    const auto strike = [&] {
        if (!std::exchange(struck, true))
            fault();
    };
    // A fault may end what has called: it waits for the event loop.
    const auto soon = [&] { QTimer::singleShot(0, &guard, strike); };
    const auto comes = [&](auto condition) { return Waiting::comes(condition, comeback); };

    if (phase == "dialling"_s) {
        fault();
        QObject::connect(&client.relay, &WireRelay::clientConnected, &guard, soon);
        client.start();
        return comes([&] { return struck || client.hasGivenUp(); });
    }
    if (phase == "login"_s) {
        QObject::connect(&client.relay, &WireRelay::clientSpoke, &guard, soon);
        client.start();
        return comes([&] { return struck; });
    }
    if (phase == "dump"_s) {
        const int middle = client.middleOfTheDump();
        client.relay.faults().cutAt = middle;
        client.relay.faults().splitPauseMs = 100; // the fault comes meanwhile
        QObject::connect(&client.relay, &WireRelay::passed, &guard, [&](qint64 bytes) {
            client.relay.faults() = LinkFaults();
            if (bytes >= middle)
                soon();
        });
        client.start();
        return comes([&] { return struck; });
    }
    client.start();
    if (!comes([&] { return isTrue(client) && hasOneConnection(client); }))
        return false;
    if (phase == "command pending"_s) {
        QObject::connect(&client, &WiredClient::commandArrived, &guard, soon);
        client.command(commandOfTheFault);
        return comes([&] { return struck; });
    }
    strike();
    if (phase == "stopping"_s)
        client.stop();
    return true;
}

std::unique_ptr<WiredClient> newClient(const QString &part)
{
    if (part == "link"_s)
        return std::make_unique<WiredLink>(30);
    return std::make_unique<WiredPlayer>(5, 20);
}

} // namespace

// What the first connection of a process leaves for good is there before anything is counted. The player comes first: Qt
// warns when the first sockets of a process are dialled on two threads at once.
void TestCampaign::initTestCase()
{
    for (const QString &part : {"player"_s, "link"_s}) {
        const auto client = newClient(part);
        client->start();
        QTRY_VERIFY(isTrue(*client));
    }
}

void TestCampaign::clientComesBack_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<int>("number"); // in the table of kinds
    QTest::addColumn<QString>("phase");
    for (const QString &part : {"link"_s, "player"_s}) {
        for (int number = 0; number < int(std::size(kinds)); ++number) {
            for (const QString &phase :
                 {"dialling"_s, "login"_s, "dump"_s, "idle"_s, "command pending"_s, "stopping"_s})
                QTest::addRow("%s: %s while %s", qPrintable(part), kinds[number].name, qPrintable(phase))
                    << part << number << phase;
        }
    }
}

void TestCampaign::clientComesBack()
{
    QFETCH(const QString, part);
    QFETCH(const int, number);
    QFETCH(const QString, phase);
    const Kind &kind = kinds[number];
    const int files = OpenFiles::count();
    {
        const std::unique_ptr<WiredClient> client = newClient(part);
        QVERIFY(strikeIn(phase, *client, [&] { kind.strike(*client); }));
        client->command(commandsBehind); // lost, or heard once
        if (phase == "stopping"_s)
            QTRY_VERIFY_WITH_TIMEOUT(hasNoConnection(*client), comeback);
        else if (kind.mend && (!kind.isSilent || client->noticesSilence()))
            QTRY_VERIFY_WITH_TIMEOUT(client->hasGivenUp(), comeback);
        else if (kind.isSilent)
            QVERIFY(bearsSilence(*client));
        if (kind.mend)
            kind.mend(*client);
        if (phase == "stopping"_s) {
            QCoreApplication::processEvents(); // the wire may still have to take what was dialled before
            QVERIFY(!dials(*client) && hasNoConnection(*client));
            client->start();
        }
        const QString wrong = whatIsWrong(*client);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        QVERIFY(staysConnected(*client));
    }
    QTRY_COMPARE(OpenFiles::count(), files);
}

namespace {

// Has the wire end each client's first connection behind so many bytes, and says which of them did not get over it.
template<typename Make>
QString cutAtEveryByte(int batch, Make make)
{
    qint64 whole = 0;
    {
        const std::unique_ptr<WiredClient> client = make();
        QObject::connect(&client->relay, &WireRelay::passed, [&](qint64 bytes) { whole = bytes; });
        client->start();
        if (!Waiting::comes([&] { return isTrue(*client); }, comeback))
            return "it does not get there uncut"_s;
    }
    for (int first = 0; first < whole; first += batch) {
        std::vector<std::unique_ptr<WiredClient>> clients;
        for (int cut = first; cut < qMin<qint64>(whole, first + batch); ++cut) {
            clients.push_back(make());
            WireRelay &relay = clients.back()->relay;
            relay.faults().closeAfterBytes = cut;
            QObject::connect(&relay, &WireRelay::clientDisconnected,
                             [&relay] { relay.faults().closeAfterBytes = -1; });
            clients.back()->start();
        }
        for (std::size_t i = 0; i < clients.size(); ++i) {
            const bool isCut = Waiting::comes([&] { return clients[i]->relay.acceptedConnections() > 1; });
            const QString wrong = isCut ? whatIsWrong(*clients[i]) : "it does not connect again"_s;
            if (!wrong.isEmpty())
                return "cut at byte %1 of %2: "_s.arg(first + int(i)).arg(whole) + wrong;
        }
    }
    return {};
}

} // namespace

void TestCampaign::dumpThatEndsAnywhere()
{
    const QString wrong = cutAtEveryByte(1, [] { return std::make_unique<WiredLink>(5); });
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

// From the handshake on. The next poll is sixty ticks away: so many players wait for it together.
void TestCampaign::repliesThatEndAnywhere()
{
    const QString wrong = cutAtEveryByte(20, [] { return std::make_unique<WiredPlayer>(1, 2); });
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

// Of a device without music servers and preset slots: each of its accounts makes new players and slots, and where there is
// no QML nothing takes the former ones back.
void TestCampaign::thousandsOfReconnectionsLeaveNothing()
{
    constexpr int reconnections = 2000;
    WiredLink link(5, false);
    DeviceState state = link.device.state();
    state.playlistEntries.clear();
    link.device.setState(state);
    WiredPlayer player(never, 1);
    const std::array<WiredClient *, 2> both{&link, &player};
    const auto areBack = [&](int times) {
        return link.dumps >= times && player.connections >= times && hasOneConnection(link)
            && hasOneConnection(player);
    };
    const auto census = [] {
        return QList<int>{OpenFiles::count(), ObjectCount::threads(), ObjectCount::timers(),
                          ObjectCount::alive()};
    };
    ObjectCount::alive();
    link.start();
    player.start();
    QVERIFY(Waiting::comes([&] { return areBack(1); }));
    QList<int> before = census();
    before[2] = 1; // the player's tick, and nothing that was on its way
    for (int i = 0; i < reconnections; ++i) {
        const int dumps = link.dumps;
        const int connections = player.connections;
        link.command(i);
        player.command(i); // is pending when the connection goes
        for (WiredClient *client : both)
            i % 2 == 0 ? client->relay.resetAll() : client->relay.closeAll();
        QVERIFY2(
            Waiting::comes([&] { return link.dumps > dumps && player.connections > connections; }, comeback),
            qPrintable("after %1"_s.arg(i)));
    }
    QVERIFY(Waiting::comes([&] { return areBack(reconnections); }, comeback));
    const QDeadlineTimer deadline(comeback);
    while (census() != before && !deadline.hasExpired())
        (void)Waiting::comes([] { return false; }, 10); // has a timer of its own meanwhile
    const QList<int> after = census();
    for (const QList<int> &all : {before, after})
        qInfo("%d descriptors, %d threads, %d timers, %d objects", all[0], all[1], all[2], all[3]);
    QCOMPARE(after, before);
    for (WiredClient *client : both) {
        QCOMPARE(client->misordered, QStringList());
        QCOMPARE(client->commands.removeDuplicates(), 0);
    }
}

HALVORA_SUITE_MAIN(TestCampaign)
#include "tst_campaign.moc"
