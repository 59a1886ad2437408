// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/HalvoraPlayer.h"
#include "player/PlayerTiming.h"
#include "simulator/JsonSpoiler.h"
#include "simulator/MopidyModels.h"
#include "simulator/MusicServerSimulator.h"
#include "support/Suite.h"

namespace {

const char tracklistReply[] = "core.tracklist.get_tl_tracks";

using Fault = void (*)(ServerFaults &);

// A player on a simulated server that plays the second of three tracks; polls and retries follow fast.
struct Studio
{
    Studio()
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

} // namespace

Q_DECLARE_METATYPE(Fault)

class TestSimulator final : public Suite
{
    Q_OBJECT

private Q_SLOTS:

    void playerOutlivesFault_data();
    void playerOutlivesFault();
    void playerOutlivesWrongTypes_data();
    void playerOutlivesWrongTypes();
};

void TestSimulator::playerOutlivesFault_data()
{
    QTest::addColumn<Fault>("fault");
    const auto row = [](const char *name, Fault fault) { QTest::newRow(name) << fault; };
    row("no reply", [](ServerFaults &faults) { faults.noReply = true; });
    row("error reply", [](ServerFaults &faults) { faults.errorReply = true; });
    row("reply twice", [](ServerFaults &faults) { faults.doubleReply = true; });
    row("no JSON", [](ServerFaults &faults) { faults.replyNoJson = true; });
    row("drop", [](ServerFaults &faults) { faults.dropAtRequest = 0; });
    row("late reply", [](ServerFaults &faults) { faults.replyDelayMs = 30; });
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
    QTest::addColumn<int>("fields"); // as many as it has, or a few more
    QTest::newRow(tracklistReply) << 70;
    QTest::newRow("core.playback.get_current_track") << 35;
    QTest::newRow("track_playback_started") << 35;
}

void TestSimulator::playerOutlivesWrongTypes()
{
    QFETCH(const int, fields);
    const QString message = QString::fromLatin1(QTest::currentDataTag());
    const bool isTracklist = message == QLatin1String(tracklistReply);
    const QList<QJsonValue> values{QJsonValue(), true,          -1.5,
                                   "text"_s,     QJsonArray{1}, QJsonObject{{"a"_s, 1}}};
    Studio studio;
    studio.server.tracklist()->remove({3});
    ServerFaults &faults = studio.server.faults();
    const QJsonObject entry = MopidyModels::tlTrack(1, studio.server.catalogue().track(0));
    const QJsonArray content = isTracklist ? QJsonArray{entry, entry} : QJsonArray{entry};
    QCOMPARE(JsonSpoiler::spoiled(content, fields - 3, "beyond"_s), QJsonValue(content));
    for (int field = 0; field < fields; ++field) {
        faults.methods = QStringList{message};
        faults.spoilField = field;
        faults.spoilWith = values.at(field % values.size());
        studio.server.playback()->play(field % 2 + 1);
        if (isTracklist)
            studio.server.sendEvent("tracklist_changed"_s);
        QTRY_COMPARE(faults.spoilField, -1); // it has gone out
    }
    faults = {};
    studio.changeServer();
    QTRY_VERIFY(studio.isTrue());
}

HALVORA_SUITE_MAIN(TestSimulator)
#include "tst_simulator.moc"
