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

// A head that a cut stream delivers ahead of its message, and a message that it delivers twice, count once.
QList<QStringList> withoutHeads(const QList<QStringList> &commands)
{
    QList<QStringList> whole;
    for (const QStringList &command : commands) {
        if (!whole.isEmpty()
            && command.join(QLatin1Char('|')).startsWith(whole.last().join(QLatin1Char('|'))))
            whole.removeLast();
        whole << command;
    }
    return whole;
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
    void commandsAreNumbered();
    void pollsAreAnsweredAndNotDelivered();
    void subCodes_data();
    void subCodes();
    void firstConnectedOnceARun();
    void addressChoice_data();
    void addressChoice();
    void cutStreamsDeliverTheSame();

    // What goes wrong

    void ticksUntilTheLinkGivesUp_data();
    void ticksUntilTheLinkGivesUp();
    void lostConnectionIsDialledAtTheNextTick();
    void silentRedial();
    void textsOfATrouble_data();
    void textsOfATrouble();
    void refusedLoginIsTriedAgain();
    void restartsInQuickSuccession();
    void nothingOfAnEndedRunReachesTheNext();
    void commandsWhileDownAreLost();
    void noCommandAheadOfTheLogin();
    void rubbishIsDropped();
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
    house.link.stopLink();
    QTRY_COMPARE(house.said.mid(4), (QStringList{disconnected, "show"_s}));
    QTRY_COMPARE(house.device.liveConnections(), 0);
    QCOMPARE(house.device.messages(), (QStringList{shortLogin, stateRequest})); // no farewell
}

void TestLink::commandsAreNumbered()
{
    ConnectedHouse house;
    Q_EMIT house.link.requireSendCommand("2000|100|7|30"_s);
    Q_EMIT house.link.requireSendString(u8"HELLO|Küche"_s);
    QTRY_COMPARE(house.device.numberedMessages().mid(2),
                 (QStringList{"2|UI_COMMAND|2000|100|7|30"_s, u8"3|HELLO|Küche"_s}));
}

void TestLink::pollsAreAnsweredAndNotDelivered()
{
    ConnectedHouse house;
    house.commands.clear();
    for (int i = 0; i < 3; ++i)
        house.device.broadcast(DeviceMessages::KeepAlive);
    house.device.broadcast(4, {"2"_s, "11"_s});
    QTRY_COMPARE(house.device.numberedMessages().mid(2),
                 (QStringList{"2|UI_ALIVE"_s, "3|UI_ALIVE"_s, "4|UI_ALIVE"_s}));
    QTRY_COMPARE(house.commands.size(), 1);
    QCOMPARE(house.commands.first(), (QStringList{"1"_s, "BROAD"_s, "4"_s, "100"_s, "2"_s, "11"_s}));
}

void TestLink::subCodes_data()
{
    Rows::add("text url"_s, R"(
        20 with both addresses ; 1|BROAD|20|x|get|post ; get post
        20 with more fields ; 1|BROAD|20|x|get|post|z ; get post
        20 with one address ; 1|BROAD|20|x|get ; none
        a poll, as empty fields do not count for it ; 1|BROAD||5|z ; none
        ; 1|BROAD|0|100
        ; 1|BROAD|2|100||3@2|
        ; 1|BROAD|x|y
        ; 1|BROAD|05|z
        ; 1|BROAD|21|a|b|c)"_s);
}

void TestLink::subCodes()
{
    QFETCH(const QString, text);
    QFETCH(const QString, url); // empty: the text is delivered
    ConnectedHouse house;
    house.commands.clear();
    house.device.sendPlain(text);
    house.settle();
    QCOMPARE(house.urls.join(QString()), url == "none"_s ? QString() : url);
    QCOMPARE(house.commands.value(0).join(QLatin1Char('|')), url.isEmpty() ? text : QString());
    QCOMPARE(house.commands.size(), int(url.isEmpty()));
}

void TestLink::firstConnectedOnceARun()
{
    ConnectedHouse house;
    house.device.broadcast(DeviceMessages::DumpEnd);
    house.settle();
    QCOMPARE(house.firstConnected, 1);
    QCOMPARE(house.said.count("hide"_s), 2);
    house.link.restartLink();
    QTRY_COMPARE(house.firstConnected, 2);
}

void TestLink::addressChoice_data()
{
    // `steps`: devices set one after the other, by the addresses that they have
    Rows::add("steps dialled"_s, R"(
        local alone ; local ; local
        remote alone ; remote ; remote
        local wins ; local+remote ; local
        remote after local dials the empty local address ; local remote
        local after remote ; remote local ; local
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

void TestLink::cutStreamsDeliverTheSame()
{
    House house;
    house.device.faults().splitPauseMs = 2;
    house.connect();
    const QList<QStringList> expected = dumpOf(house.device.state());
    int streamSize = 0;
    const int joinSize = FrameCodec::encryptText("1|JOIN"_s).size() + 3;
    for (const DeviceMessages::Broad &broad : DeviceMessages::dump(house.device.state()))
        streamSize += FrameCodec::encryptText(DeviceMessages::text(1, broad)).size() + 3;
    for (int cut = 1; cut < joinSize + streamSize; ++cut) {
        house.link.stopLink();
        QCoreApplication::processEvents();
        house.commands.clear();
        house.device.faults().cutAt = cut;
        QSignalSpy dumpEnds(&house.link, &HalvoraConnThread::firstConnected);
        house.link.restartLink();
        QVERIFY(dumpEnds.wait());
        // An acceptance that is cut near its end is read twice, and the state then asked for twice.
        const QList<QStringList> commands = withoutHeads(house.commands).mid(0, expected.size());
        QVERIFY2(commands == expected, qPrintable("cut at %1"_s.arg(cut)));
    }
}

void TestLink::ticksUntilTheLinkGivesUp_data()
{
    QTest::addColumn<QString>("trouble");
    QTest::addColumn<int>("limit");
    QTest::newRow("nobody listens") << "nobody"_s << 11;
    QTest::newRow("the login is not answered") << "ignored"_s << 6;
    QTest::newRow("silence after the acceptance") << "silent"_s << 16;
}

void TestLink::ticksUntilTheLinkGivesUp()
{
    QFETCH(const QString, trouble);
    QFETCH(const int, limit);
    House house(never);
    HalvoraConnSocket socket;
    const QSignalSpy errors(&socket, &HalvoraConnSocket::connectionError);
    const QSignalSpy joins(&socket, &HalvoraConnSocket::connectionEstablished);
    if (trouble == "nobody"_s)
        house.device.stopListening();
    socket.connectToServer(house.device.host(), house.device.port());
    if (trouble == "nobody"_s) {
        QTRY_COMPARE(socket.state(), QAbstractSocket::UnconnectedState);
    } else {
        QTRY_COMPARE(house.device.liveConnections(), 1);
    }
    if (trouble == "silent"_s) {
        house.device.sendPlain("1|JOIN"_s);
        QTRY_COMPARE(joins.size(), 1);
        for (int tick = 1; tick < limit; ++tick)
            socket.timerTimeout();
        house.device.sendPlain("1|BROAD|5|100"_s); // any announcement starts the count anew
        QTRY_VERIFY(house.device.messages().contains("UI_ALIVE"_s));
    }
    for (int tick = 1; tick < limit; ++tick)
        socket.timerTimeout();
    QCOMPARE(errors.size(), 0);
    socket.timerTimeout();
    QCOMPARE(errors.size(), 1);
    QCOMPARE(socket.state(), QAbstractSocket::UnconnectedState);
}

void TestLink::lostConnectionIsDialledAtTheNextTick()
{
    House house(never);
    HalvoraConnSocket socket;
    const QSignalSpy errors(&socket, &HalvoraConnSocket::connectionError);
    const QSignalSpy restarts(&socket, &HalvoraConnSocket::connectionMustRestart);
    socket.connectToServer(house.device.host(), house.device.port());
    QTRY_COMPARE(house.device.liveConnections(), 1);
    house.device.dropAll();
    QTRY_COMPARE(socket.state(), QAbstractSocket::UnconnectedState);
    QString message = "lost"_s;
    socket.writeMessage(message);
    QCOMPARE(restarts.size(), 0);
    socket.timerTimeout();
    QCOMPARE(restarts.size(), 1);
    QCOMPARE(errors.size(), 0);
    socket.connectToServer(house.device.host(), house.device.port());
    socket.writeMessage(message); // still dialling
    QCOMPARE(message, "lost"_s);
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
    QTest::addColumn<int>("tick");
    QTest::addColumn<QString>("trouble");
    QTest::newRow("nobody listens") << 5 << "nobody"_s;
    QTest::newRow("the login is not answered") << 50 << "ignored"_s;
    QTest::newRow("silence after the acceptance") << 50 << "silent"_s;
}

void TestLink::textsOfATrouble()
{
    QFETCH(const int, tick);
    QFETCH(const QString, trouble);
    House house(tick);
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

// A raw server, as the test must stay out of its event loop until the connection stands.
void TestLink::nothingOfAnEndedRunReachesTheNext()
{
    House house;
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    house.record.setLocalPort(server.serverPort());
    house.link.setDevice(&house.record);
    QTcpSocket *peer = nullptr;
    for (int run = 0; run < 20; ++run) {
        house.link.restartLink();
        QVERIFY(server.waitForNewConnection(5000));
        house.link.wait(1); // lets the link's thread note that it is connected
        delete peer;
        peer = server.nextPendingConnection();
    }
    QTRY_VERIFY(peer->peek(4096).endsWith('&'));
    peer->write(FrameCodec::encryptText("1|JOIN"_s) + "%%%");
    const QByteArray request = FrameCodec::encryptText("1|"_s + stateRequest) + '&';
    QTRY_VERIFY(peer->peek(4096).endsWith(request));
    QCOMPARE(peer->readAll(), FrameCodec::encryptText("0|"_s + shortLogin) + '&' + request);
    delete peer;
}

void TestLink::commandsWhileDownAreLost()
{
    House house;
    Q_EMIT house.link.requireSendCommand("1"_s);
    house.connect();
    house.link.stopLink();
    Q_EMIT house.link.requireSendCommand("2"_s);
    house.device.clearReceived();
    house.link.restartLink();
    QTRY_COMPARE(house.firstConnected, 2);
    house.device.broadcast(DeviceMessages::KeepAlive);
    QTRY_COMPARE(house.device.numberedMessages().size(), 3);
    QCOMPARE(house.device.numberedMessages(),
             (QStringList{"0|"_s + shortLogin, "1|"_s + stateRequest, "2|UI_ALIVE"_s}));
}

void TestLink::noCommandAheadOfTheLogin()
{
    House house;
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    house.record.setLocalPort(server.serverPort());
    house.link.setDevice(&house.record);
    for (int run = 0; run < 20; ++run) {
        house.link.restartLink();
        QVERIFY(server.waitForNewConnection(5000));
        house.link.wait(1); // connected, while the login still waits for this thread
        Q_EMIT house.link.requireSendCommand("2000|100|7|30"_s);
        const std::unique_ptr<QTcpSocket> peer(server.nextPendingConnection());
        const QByteArray login = FrameCodec::encryptText("0|"_s + shortLogin) + '&';
        QTRY_VERIFY(peer->peek(4096).endsWith('&'));
        QCOMPARE(peer->peek(4096).left(login.size()), login);
    }
}

void TestLink::rubbishIsDropped()
{
    ConnectedHouse house;
    house.commands.clear();
    house.device.sendRaw("no Base64 at all %%%AAAA%%%%%%");
    for (const QString &text :
         {"1"_s, "1|"_s, "1|BROAD"_s, "1|broad|3|x"_s, "|BROAD|3|x"_s, "1|NEWS|3|x"_s, QString()})
        house.device.sendPlain(text);
    house.settle();
    QCOMPARE(house.commands, QList<QStringList>());
    QCOMPARE(house.device.acceptedConnections(), 1);
}

HALVORA_SUITE_MAIN(TestLink)
#include "tst_link.moc"
