// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/Device.h"
#include "link/FrameCodec.h"
#include "link/HalvoraConnSocket.h"
#include "link/HalvoraConnThread.h"
#include "link/WatchdogInterval.h"
#include "simulator/DeviceSimulator.h"
#include "support/Rows.h"
#include "support/Suite.h"

#include <QSettings>
#include <QTcpServer>

namespace {

constexpr int never = 3600 * 1000; // a watchdog that a test ticks by hand

const QString shortLogin = "CONNECT|unit-7|default|78f0fbbb3fe75085405edc0a942c57b9"_s;
const QString stateRequest = "UI_COMMAND|17"_s;
const QString connecting = "Connecting to Halvora..."_s;
const QString authenticating = "Authentication in progress..."_s;
const QString unreachable = "Halvora not reachable or connectivity problems."_s;
const QString disconnected = "Disconnected."_s;

DeviceState smallDevice()
{
    DeviceState state;
    OutputState output;
    output.index = 7;
    output.name = u8"Küche"_s;
    SourceState source;
    source.index = 2;
    source.name = "Tuner"_s;
    state.outputs = {output};
    state.sources = {source};
    return state;
}

// The messages of a dump as the link delivers them: without the end mark.
QList<QStringList> dumpOf(const DeviceState &state)
{
    QList<QStringList> messages;
    for (const DeviceMessages::Broad &broad : DeviceMessages::dump(state)) {
        if (broad.code != DeviceMessages::DumpEnd)
            messages << DeviceMessages::text(state.number, broad).split(QLatin1Char('|'));
    }
    return messages;
}

// A device, a link to it, and a record of what the link says, as the screens hear it.
struct House
{
    explicit House(int tick = 1000)
    {
        WatchdogInterval::shortenForTests(tick);
        device.setState(smallDevice());
        device.setPollInterval(0);
        QVERIFY(device.listen());
        record.setLocalIp(device.host());
        record.setLocalPort(device.port());
        const auto hear = [this](auto signal, auto note) { QObject::connect(&link, signal, &device, note); };
        hear(&HalvoraConnThread::showConnectionScreen,
             [this](bool show) { said << (show ? "show"_s : "hide"_s); });
        hear(&HalvoraConnThread::setConnectionScreenMessage, [this](const QString &text) { said << text; });
        hear(&HalvoraConnThread::halvoraCommandReceived, [this](const QStringList &l) { commands << l; });
        hear(&HalvoraConnThread::firstConnected, [this] { ++firstConnected; });
        hear(&HalvoraConnThread::requireAuthenticationDialog, [this] { ++dialogs; });
        hear(&HalvoraConnThread::deviceSettingsUrlsUpdated,
             [this](const QString &get, const QString &post) { urls << get + QLatin1Char(' ') + post; });
    }

    void start()
    {
        link.setDevice(&record);
        link.restartLink();
    }

    void connect()
    {
        start();
        QTRY_COMPARE(firstConnected, 1);
    }

    // Until everything that was sent either way has arrived.
    void settle()
    {
        device.clearReceived();
        device.broadcast(DeviceMessages::KeepAlive);
        QTRY_VERIFY(device.messages().contains("UI_ALIVE"_s));
        QCoreApplication::processEvents();
    }

    QStringList texts() const // of the connection screen
    {
        QStringList list = said;
        list.removeAll("show"_s);
        list.removeAll("hide"_s);
        return list;
    }

    Device record;
    DeviceSimulator device;
    QStringList said;
    QList<QStringList> commands;
    QStringList urls;
    int firstConnected = 0;
    int dialogs = 0;
    HalvoraConnThread link;
};

struct ConnectedHouse final : House
{
    ConnectedHouse() { connect(); }
};

} // namespace

class TestLink final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QSettings().setValue("uniqueID"_s, "unit-7"_s);
        QCOMPARE(WatchdogInterval::milliseconds(),
                 1000); // what the product lives by, before any test shortens it
    }

    // What works

    void login_data();
    void login();
    void startTellsTheScreensAndDeliversTheDump();
    void commandsAndPollsAreNumbered();
    void subCodes();
    void addressChoice_data();
    void addressChoice();

    // What goes wrong

    void ticksUntilTheLinkGivesUp_data();
    void ticksUntilTheLinkGivesUp();
    void nothingIsWrittenWhileDialling();
    void silentRedial();
    void textsOfATrouble_data();
    void textsOfATrouble();
    void refusedLoginIsTriedAgain();
    void restartsInQuickSuccession();
    void nothingOfAnEndedRunReachesTheNext_data();
    void nothingOfAnEndedRunReachesTheNext();
};

void TestLink::login_data()
{
    const QString shortFrame =
        "B4Fy9G49nBLq3uXuwuQj59ksPZE1Z/8W5EC0cOOJWTIeZnrRyAZoNmH2W6paXtQHiNhZwqe3diVA6p+Y8F+u6g=="_s;
    const QString longFrame = "B4Fy9G49nBLq3uXuwuQj5yN0URrQyrODHBQL5V3REi66P4/ncI03mFlwnkYTg646Gcd/ZFOcbGliV"
                              "3tNGPBoV8DzghSWs6xePc22TPnfjJRokfMeSH85PKLn1w55yEaRP36/woGRZagKRZCz6tctbQ=="_s;
    Rows::add("username password frame"_s, u8R"(
        long ; Jörg ; Schlüssel ; %1
        short ; ; ; %2
        a name without a password ; Jörg ; ; %2
        a password without a name ; ; secret ; %2)"_s.arg(longFrame, shortFrame));
}

void TestLink::login()
{
    QFETCH(const QString, username);
    QFETCH(const QString, password);
    QFETCH(const QString, frame);
    House house;
    house.record.setUsername(username);
    house.record.setPassword(password);
    house.connect();
    const QByteArray stateRequestFrame = "FAYSYoPAGLu2LvRIteRAgg==";
    QCOMPARE(house.device.receivedFrames(), (QList<QByteArray>{frame.toLatin1(), stateRequestFrame}));
}

void TestLink::startTellsTheScreensAndDeliversTheDump()
{
    ConnectedHouse house;
    QCOMPARE(house.said, (QStringList{"show"_s, connecting, authenticating, "hide"_s}));
    QCOMPARE(house.commands, dumpOf(house.device.state()));
    house.device.broadcast(DeviceMessages::DumpEnd);
    QTRY_COMPARE(house.said.count("hide"_s), 2);
    QCOMPARE(house.firstConnected, 1); // once a run
    house.link.stopLink();
    QTRY_COMPARE(house.said.mid(5), (QStringList{disconnected, "show"_s}));
    QTRY_COMPARE(house.device.liveConnections(), 0);
    QCOMPARE(house.device.messages(), (QStringList{shortLogin, stateRequest})); // no farewell
}

void TestLink::commandsAndPollsAreNumbered()
{
    ConnectedHouse house;
    house.commands.clear();
    Q_EMIT house.link.requireSendCommand("2000|100|99|30"_s);
    Q_EMIT house.link.requireSendString(u8"HELLO|Küche"_s);
    QTRY_COMPARE(house.device.numberedMessages().mid(2),
                 (QStringList{"2|UI_COMMAND|2000|100|99|30"_s, u8"3|HELLO|Küche"_s}));
    house.device.broadcast(DeviceMessages::KeepAlive);
    house.device.broadcast(DeviceMessages::KeepAlive);
    house.device.broadcast(4, {"2"_s, "11"_s});
    QTRY_COMPARE(house.device.numberedMessages().mid(4), (QStringList{"4|UI_ALIVE"_s, "5|UI_ALIVE"_s}));
    QTRY_COMPARE(house.commands, QList<QStringList>{"1|BROAD|4|100|2|11"_s.split(QLatin1Char('|'))});
}

// All of them on one link: what the screens hear, and which addresses.
void TestLink::subCodes()
{
    ConnectedHouse house;
    house.commands.clear();
    const QStringList delivered{"1|BROAD|0|100"_s, "1|BROAD|2|100||3@2|"_s, "1|BROAD|x|y"_s, "1|BROAD|05|z"_s,
                                "1|BROAD|21|a|b|c"_s};
    const QStringList kept{"1|BROAD|20|x|get|post"_s,
                           "1|BROAD|20|x|a|b|more"_s,
                           "1|BROAD|20|x|one"_s,
                           "1|BROAD||5|z"_s, // a poll, as empty fields do not count for it
                           "1"_s,
                           "1|"_s,
                           "1|BROAD"_s,
                           "1|broad|3|x"_s,
                           "|BROAD|3|x"_s,
                           "1|NEWS|3|x"_s,
                           {}};
    house.device.sendRaw("no Base64 at all %%%AAAA%%%%%%");
    for (const QString &text : kept + delivered)
        house.device.sendPlain(text);
    house.settle();
    QStringList heard;
    for (const QStringList &command : qAsConst(house.commands))
        heard << command.join(QLatin1Char('|'));
    QCOMPARE(heard, delivered);
    QCOMPARE(house.urls, (QStringList{"get post"_s, "a b"_s}));
    QCOMPARE(house.device.acceptedConnections(), 1);
}

void TestLink::addressChoice_data()
{
    // `steps`: devices set one after the other, by the addresses that they have
    Rows::add("steps dialled"_s, R"(
        remote alone ; remote ; remote
        local wins ; local+remote ; local
        remote after local dials the empty local address ; local remote
        remote after local and none ; local none remote ; remote
        none ; none)"_s);
}

void TestLink::addressChoice()
{
    QFETCH(const QString, steps);
    QFETCH(const QString, dialled);
    std::vector<std::unique_ptr<Device>> records; // outlive the link: it reads the last one at each start
    House house(5);
    DeviceSimulator away;
    QVERIFY(away.listen());
    for (const QString &step : steps.split(QLatin1Char(' '))) {
        records.push_back(std::make_unique<Device>());
        if (step.contains("local"_s)) {
            records.back()->setLocalIp(house.device.host());
            records.back()->setLocalPort(house.device.port());
        }
        if (step.contains("remote"_s)) {
            records.back()->setRemoteIp(away.host());
            records.back()->setRemotePort(away.port());
        }
        house.link.setDevice(step == "none"_s ? nullptr : records.back().get());
    }
    WatchdogInterval::shortenForTests(dialled.isEmpty() ? 5 : 1000);
    house.link.restartLink();
    if (dialled.isEmpty())
        QTRY_VERIFY(house.texts().contains(unreachable));
    else
        QTRY_COMPARE(house.firstConnected, 1);
    QCOMPARE(house.device.acceptedConnections(), int(dialled == "local"_s));
    QCOMPARE(away.acceptedConnections(), int(dialled == "remote"_s));
}

void TestLink::ticksUntilTheLinkGivesUp_data()
{
    Rows::add("limit"_s, R"(
        nobody ; 11
        ignored ; 6
        silent ; 16)"_s);
}

void TestLink::ticksUntilTheLinkGivesUp()
{
    QFETCH(const QString, limit);
    const QByteArray trouble = QTest::currentDataTag();
    House house(never);
    HalvoraConnSocket socket;
    const QSignalSpy errors(&socket, &HalvoraConnSocket::connectionError);
    const QSignalSpy joins(&socket, &HalvoraConnSocket::connectionEstablished);
    const auto tickToTheLast = [&] {
        for (int tick = 1; tick < limit.toInt(); ++tick)
            socket.timerTimeout();
    };
    if (trouble == "nobody")
        house.device.stopListening();
    socket.connectToServer(house.device.host(), house.device.port());
    QTRY_COMPARE(socket.state(),
                 trouble == "nobody" ? QAbstractSocket::UnconnectedState : QAbstractSocket::ConnectedState);
    if (trouble == "silent") {
        QTRY_COMPARE(house.device.liveConnections(), 1);
        house.device.sendPlain("1|JOIN"_s);
        QTRY_COMPARE(joins.size(), 1);
        tickToTheLast();
        house.device.sendPlain("1|BROAD|5|100"_s); // any announcement starts the count anew
        QTRY_VERIFY(house.device.messages().contains("UI_ALIVE"_s));
    }
    tickToTheLast();
    QCOMPARE(errors.size(), 0);
    socket.timerTimeout();
    QCOMPARE(errors.size(), 1);
    QCOMPARE(socket.state(), QAbstractSocket::UnconnectedState);
}

void TestLink::nothingIsWrittenWhileDialling()
{
    House house(never);
    HalvoraConnSocket socket;
    QString message = "lost"_s;
    socket.connectToServer(house.device.host(), house.device.port());
    socket.writeMessage(message);
    QTRY_COMPARE(socket.state(), QAbstractSocket::ConnectedState);
    message = "heard"_s;
    socket.writeMessage(message);
    QTRY_COMPARE(house.device.numberedMessages(), QStringList{"0|heard"_s});
}

void TestLink::silentRedial()
{
    House house(100);
    house.connect();
    Q_EMIT house.link.requireSendCommand("2000|100|7|30"_s);
    QTRY_COMPARE(house.device.messages().size(), 3);
    house.device.broadcast(DeviceMessages::KeepAlive);
    house.device.sendRaw(
        "halfAFrameThatNeverEnds"); // in one write with the poll, so it has come when that is answered
    QTRY_COMPARE(house.device.messages().size(), 4);
    house.said.clear();
    house.commands.clear();
    house.device.clearReceived();
    house.device.dropAll();
    QTRY_VERIFY(house.said.contains("hide"_s));
    QCOMPARE(house.said, (QStringList{authenticating, "hide"_s}));
    QCOMPARE(house.device.numberedMessages(), (QStringList{"0|"_s + shortLogin, "1|"_s + stateRequest}));
    QCOMPARE(house.commands, dumpOf(house.device.state()));
    QCOMPARE(house.firstConnected, 1);
    QCOMPARE(house.device.acceptedConnections(), 2);
}

void TestLink::textsOfATrouble_data()
{
    Rows::add("tick"_s, R"(
        nobody ; 5
        ignored ; 50
        silent ; 50)"_s);
}

void TestLink::textsOfATrouble()
{
    QFETCH(const QString, tick);
    const QString trouble = QString::fromLatin1(QTest::currentDataTag());
    House house(tick.toInt());
    house.device.faults().ignoreLogin = trouble == "ignored"_s;
    house.device.faults().silentAfterJoin = trouble == "silent"_s;
    if (trouble == "nobody"_s)
        house.device.stopListening();
    house.start();
    QStringList expected{"show"_s,     connecting, authenticating, unreachable, "show"_s,
                         disconnected, "show"_s,   "show"_s,       connecting};
    if (trouble == "nobody"_s)
        expected.removeAll(authenticating);
    QTRY_VERIFY(house.said.size() >= expected.size());
    QCOMPARE(house.said.mid(0, expected.size()), expected);
    house.device.faults() = LinkFaults();
    QVERIFY(house.device.listenAgain());
    QTRY_COMPARE(house.firstConnected, 1);
}

void TestLink::refusedLoginIsTriedAgain()
{
    House house(50);
    house.device.faults().refuseLogin = true;
    house.start();
    QTRY_VERIFY(house.device.messages().size() >= 4);
    const QStringList received = house.device.numberedMessages();
    for (const QString &message : received)
        QCOMPARE(message, "0|"_s + shortLogin);
    QCOMPARE(house.dialogs, 0);
    QStringList texts = house.texts();
    texts.removeDuplicates();
    QCOMPARE(texts, (QStringList{connecting, authenticating}));
    house.device.faults().refuseLogin = false;
    QTRY_COMPARE(house.firstConnected, 1);
}

void TestLink::restartsInQuickSuccession()
{
    House house;
    house.link.setDevice(&house.record);
    house.link.stopLink(); // nothing runs yet
    for (int i = 0; i < 20; ++i) {
        house.link.restartLink();
        if (i % 3 == 0)
            QTRY_VERIFY(house.device.liveConnections() > 0);
        if (i % 2 == 0)
            house.link.stopLink();
    }
    house.firstConnected = 0;
    QTRY_COMPARE(house.firstConnected, 1);
    house.settle();
    QTRY_COMPARE(house.device.liveConnections(), 1);
    QCOMPARE(house.device.joinedConnections(), 1);
    QCOMPARE(house.said.last(), "hide"_s);
}

// A raw server, as the test must stay out of its event loop until the connection stands. Commands are sent while the
// login still waits for this thread.
void TestLink::nothingOfAnEndedRunReachesTheNext_data()
{
    QTest::addColumn<bool>("commands");
    QTest::newRow("logins") << false;
    QTest::newRow("commands behind the login") << true;
}

void TestLink::nothingOfAnEndedRunReachesTheNext()
{
    QFETCH(const bool, commands);
    House house;
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    house.record.setLocalPort(server.serverPort());
    house.link.setDevice(&house.record);
    const QByteArray login = FrameCodec::encryptText("0|"_s + shortLogin) + '&';
    std::unique_ptr<QTcpSocket> peer;
    for (int run = 0; run < 20; ++run) {
        house.link.restartLink();
        QVERIFY(server.waitForNewConnection(5000));
        house.link.wait(1); // lets the link's thread note that it is connected
        if (commands)
            Q_EMIT house.link.requireSendCommand("2000|100|7|30"_s);
        peer.reset(server.nextPendingConnection());
        QTRY_VERIFY(!commands || peer->peek(4096).endsWith('&'));
        QVERIFY(!commands || peer->peek(4096).startsWith(login));
    }
    if (commands)
        return;
    QTRY_VERIFY(peer->peek(4096).endsWith('&'));
    peer->write(FrameCodec::encryptText("1|JOIN"_s) + "%%%");
    const QByteArray request = FrameCodec::encryptText("1|"_s + stateRequest) + '&';
    QTRY_VERIFY(peer->peek(4096).endsWith(request));
    QCOMPARE(peer->readAll(), login + request);
}

HALVORA_SUITE_MAIN(TestLink)
#include "tst_link.moc"
