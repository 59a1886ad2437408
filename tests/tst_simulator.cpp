// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/HalvoraPlayer.h"
#include "player/PlayerTiming.h"
#include "simulator/JsonSpoiler.h"
#include "simulator/MopidyModels.h"
#include "simulator/MusicServerSimulator.h"
#include "support/Suite.h"

#include <QTcpServer>

namespace {

const QString tracklistReply = "core.tracklist.get_tl_tracks"_s;
const QString trackReply = "core.playback.get_current_track"_s;
const QString startedEvent = "track_playback_started"_s;

using Fault = void (*)(ServerFaults &);

// A player on a simulated server that plays the second of three tracks; polls and retries follow fast.
struct Studio
{
    explicit Studio(const Catalogue &catalogue = Catalogue()) : server(catalogue)
    {
        PlayerTiming::current() = {2, 10, 20};
        QVERIFY(server.listen());
        server.tracklist()->add(
            {server.catalogue().track(0), server.catalogue().track(1), server.catalogue().track(2)});
        player.setIpAddress(server.host());
        player.setPort(QString::number(server.port()));
        player.startConnection();
        QVERIFY(Waiting::comes([this] { return player.queueTlid().size() == 3; }));
        server.playback()->play(2); // its event alone tells the current id
        QVERIFY(Waiting::comes([this] { return isTrue(); }));
    }

    // Whether the mirror shows what the server has.
    bool isTrue()
    {
        QList<int> tlids;
        for (const TracklistEntry &entry : server.tracklist()->entries())
            tlids << entry.tlid;
        return server.liveSockets() == 1 && player.queueTlid() == tlids && player.currentSong()
            && player.currentSong()->uri() == server.playback()->current().track.uri
            && player.currentTlid() == server.playback()->currentTlid()
            && player.playPause() == int(server.playback()->state());
    }

    // What a person does at the server; all of the mirror's parts are to follow it.
    void changeServer()
    {
        server.tracklist()->add({server.catalogue().track(7)});
        server.playback()->play(server.playback()->currentTlid() % 3 + 1);
    }

    MusicServerSimulator server;
    HalvoraPlayer player;
};

class Receiver final : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void browseRows(int, QJsonValue v) { rows = v.toArray().size(); }

    int rows = 0;
};

} // namespace

Q_DECLARE_METATYPE(Fault)

class TestSimulator final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void largeLibrary();

    void playerOutlivesFault_data();
    void playerOutlivesFault();
    void playerOutlivesWrongTypes_data();
    void playerOutlivesWrongTypes();
    void refusedPlayerComesBack();
};

void TestSimulator::largeLibrary()
{
    Studio studio(Catalogue(1, 100000));
    Receiver receiver;
    studio.player.actionBrowse("local:directory?type=track"_s, &receiver, "browseRows");
    QTRY_COMPARE_WITH_TIMEOUT(receiver.rows, 100000, 30000); // sanitized, it takes a while
}

void TestSimulator::playerOutlivesFault_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::newRow("no reply") << Fault([](ServerFaults &faults) { faults.noReply = true; });
    QTest::newRow("error reply") << Fault([](ServerFaults &faults) { faults.errorReply = true; });
    QTest::newRow("reply twice") << Fault([](ServerFaults &faults) { faults.doubleReply = true; });
    QTest::newRow("no JSON") << Fault([](ServerFaults &faults) { faults.replyNoJson = true; });
    QTest::newRow("drop") << Fault([](ServerFaults &faults) { faults.dropAtRequest = 0; });
    QTest::newRow("late reply") << Fault([](ServerFaults &faults) { faults.replyDelayMs = 30; });
    QTest::newRow("wrong results") << Fault([](ServerFaults &faults) {
        faults.results = {{tracklistReply, 5}, {trackReply, "text"_s}, {"core.playback.get_state"_s, true}};
    });
}

void TestSimulator::playerOutlivesFault()
{
    QFETCH(const Fault, fault);
    Studio studio;
    fault(studio.server.faults());
    studio.server.clearRequests();
    studio.changeServer();
    studio.player.actionRefreshPlaylists();
    QTRY_VERIFY(studio.server.requests().size() >= 3); // what the events led to has met the fault
    studio.server.faults() = {};
    QTRY_COMPARE(studio.server.liveSockets(), 1);
    studio.changeServer();
    QTRY_VERIFY(studio.isTrue());
}

void TestSimulator::playerOutlivesWrongTypes_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("fields"); // as many as it has, or a few more
    QTest::newRow("tracklist") << tracklistReply << 70;
    QTest::newRow("current track") << trackReply << 35;
    QTest::newRow("event") << startedEvent << 35;
}

void TestSimulator::playerOutlivesWrongTypes()
{
    QFETCH(const QString, message);
    QFETCH(const int, fields);
    const QList<QJsonValue> values{QJsonValue(), true,          -1.5,
                                   "text"_s,     QJsonArray{1}, QJsonObject{{"a"_s, 1}}};
    Studio studio;
    studio.server.tracklist()->remove({3});
    ServerFaults &faults = studio.server.faults();
    const QJsonObject entry = MopidyModels::tlTrack(1, studio.server.catalogue().track(0));
    const QJsonArray content = message == tracklistReply ? QJsonArray{entry, entry} : QJsonArray{entry};
    QCOMPARE(JsonSpoiler::spoiled(content, fields - 3, "beyond"_s), QJsonValue(content));
    for (int field = 0; field < fields; ++field) {
        faults.methods = QStringList{message};
        faults.spoilField = field;
        faults.spoilWith = values.at(field % values.size());
        studio.server.playback()->play(field % 2 + 1);
        if (message == tracklistReply)
            studio.server.sendEvent("tracklist_changed"_s);
        QTRY_COMPARE(faults.spoilField, -1); // it has gone out
    }
    faults = {};
    studio.changeServer();
    QTRY_VERIFY(studio.isTrue());
}

void TestSimulator::refusedPlayerComesBack()
{
    Studio studio;
    studio.server.refuseFor(60);
    studio.server.dropAll();
    QTcpServer other; // has the port when the server wants it back
    QVERIFY(other.listen(QHostAddress::LocalHost, studio.server.port()));
    QTRY_VERIFY(other.hasPendingConnections());
    QTest::qWait(0);
    other.close();
    QTRY_COMPARE(studio.server.liveSockets(), 1);
    studio.changeServer();
    QTRY_VERIFY(studio.isTrue());
}

HALVORA_SUITE_MAIN(TestSimulator)
#include "tst_simulator.moc"
