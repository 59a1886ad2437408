// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/Device.h"
#include "link/HalvoraConnThread.h"
#include "model/Halvora.h"
#include "player/PlayerTiming.h"
#include "simulator/DeviceSimulator.h"
#include "support/Listed.h"
#include "support/RawMusicServer.h"
#include "support/SignalLog.h"
#include "support/Suite.h"

namespace {

using Action = std::function<void(Halvora *)>;

QStringList fieldsOf(const QString &message)
{
    return message.split(QLatin1Char('|'));
}

// The whole mirror in one text, in the order in which QML sees it.
QString mirrorOf(Halvora *halvora)
{
    QStringList texts;
    for (const Output *output : listed(halvora->outputs())) {
        texts << "o%1=%2(%3 %4 %5 %6 %7 %8)<%9"_s.arg(output->index())
                     .arg(output->name())
                     .arg(output->volume())
                     .arg(int(output->mute()))
                     .arg(output->bass())
                     .arg(output->middle())
                     .arg(output->treble())
                     .arg(output->loudness())
                     .arg(output->selectedSource() ? output->selectedSource()->index() : -1);
    }
    for (const Source *source : listed(halvora->sources())) {
        const HalvoraPlayer *player = source->player();
        texts << "s%1=%2(%3)%4"_s.arg(source->index())
                     .arg(source->name())
                     .arg(source->volume())
                     .arg(
                         player
                             ? "p%1 %2:%3"_s.arg(player->sourceRef()).arg(player->ipAddress(), player->port())
                             : QString());
        if (player && player->airPlay())
            texts.last() += "*%1/%2/%3/%4"_s.arg(player->airPlayTrack(), player->airPlayAlbum(),
                                                 player->airPlayArtist(), player->airPlayImage());
    }
    for (const PlaylistEntry *entry : listed(halvora->playlistEntries()))
        texts << "e%1=%2<%3"_s.arg(entry->entryId()).arg(entry->name(), entry->playlistRef());
    return texts.join(QLatin1Char(' '));
}

// A mirror without a link, in which everything that changes is heard.
struct Mirror
{
    ~Mirror()
    {
        for (const Source *source : halvora.sourceMap())
            delete source->player();
    }

    void feed(const QStringList &messages)
    {
        for (const QString &message : messages)
            halvora.commandReceived(fieldsOf(message));
    }

    // All objects that there are so far.
    void listen()
    {
        log.watch(&halvora, "h"_s);
        for (Output *output : listed(halvora.outputs()))
            log.watch(output, "o%1"_s.arg(output->index()));
        for (Source *source : listed(halvora.sources())) {
            log.watch(source, "s%1"_s.arg(source->index()));
            if (source->player())
                log.watch(source->player(), "p%1"_s.arg(source->index()));
        }
    }

    Halvora halvora;
    SignalLog log;
};

// A mirror at the end of a real link to a simulated device.
struct House
{
    House()
    {
        DeviceState state;
        state.outputs = {{7, "Kitchen"_s, 20, false, 1, 2, 3, 4, 2},
                         {3, "Hall"_s, 30, true, 0, 0, 0, 0, 9},
                         {12, "Attic"_s, 40, false, 0, 0, 0, 0, -1}};
        state.sources.resize(2);
        state.sources[0].index = 9;
        state.sources[0].name = "Tuner"_s;
        state.sources[1].index = 2;
        state.sources[1].name = "Deck"_s;
        state.playlistEntries = {{1, "Morning"_s, "m3u:a"_s}};
        device.setState(state);
        device.setPollInterval(0);
        QVERIFY(device.listen());
        record.setLocalIp(device.host());
        record.setLocalPort(device.port());
        link.setDevice(&record);
        halvora.setConnPointer(&link);
    }

    void dial()
    {
        QSignalSpy dumpEnds(&link, &HalvoraConnThread::firstConnected);
        link.restartLink();
        QVERIFY(dumpEnds.wait());
    }

    Device record;
    DeviceSimulator device;
    Halvora halvora;
    HalvoraConnThread link;
};

const QString houseMirror = "o3=Hall(30 1 0 0 0 0)<9 o7=Kitchen(20 0 1 2 3 4)<2 o12=Attic(40 0 0 0 0 0)<-1 "
                            "s2=Deck(0) s9=Tuner(0) e1=Morning<m3u:a"_s;

} // namespace

Q_DECLARE_METATYPE(Action)

class TestModel final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    // What works

    void messages_data();
    void messages();
    void repeatedSourceListMakesANewPlayer();
    void changedPlaylistsReachEachPlayer();
    void linkIsHeardAndReplaced();
    void actions_data();
    void actions();
    void actionComesBackAsAMessage_data();
    void actionComesBackAsAMessage();
    void cutDumpsGiveTheSameMirror();

    // What goes wrong

    void oddMessages_data();
    void oddMessages();
    void actionsWithoutALinkDoNothing();
};

namespace {

const QString outputs = "1|BROAD|1|100|5@E|2@B|9@I"_s;
const QString sources = "1|BROAD|0|100|4@Deck@0|3@Radio@0"_s;
const QString airPlayOn = "1|BROAD|10|100|6|1|T|A|R|I"_s;
const QString player = "1|BROAD|0|100|6@Box@1"_s;

void messageColumns()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("mirror");
    QTest::addColumn<QString>("heard"); // the signals of the message alone
}

} // namespace

void TestModel::messages_data()
{
    messageColumns();
    const QString o259 = "o2=B(0 0 0 0 0 0)<-1 o5=E(0 0 0 0 0 0)<-1 o9=I(0 0 0 0 0 0)<-1"_s;
    const QString routed = "o5=E(0 0 0 0 0 0)<4 s3=R(0) s4=D(0)"_s;
    const QStringList toRoute{"1|BROAD|1|100|5@E"_s, "1|BROAD|0|100|4@D@0|3@R@0"_s, "1|BROAD|2|100|5@4"_s};
    QTest::newRow("outputs, in ascending order") << QStringList() << outputs << o259 << "h.outputsChanged"_s;
    QTest::newRow("outputs, renamed, none removed")
        << QStringList{outputs} << "1|BROAD|1|100|5@Five@x"_s << QString(o259).replace("5=E"_s, "5=Five"_s)
        << "o5.nameChanged h.outputsChanged"_s;
    QTest::newRow("outputs, none") << QStringList() << "1|BROAD|1"_s << QString() << "h.outputsChanged"_s;
    QTest::newRow("sources, in ascending order") << QStringList() << sources << "s3=Radio(0) s4=Deck(0)"_s
                                                 << "h.sourcesChanged"_s;
    QTest::newRow("sources, none") << QStringList{sources} << "1|BROAD|0|100"_s
                                   << "s3=Radio(0) s4=Deck(0)"_s
                                   << "h.sourcesChanged"_s;
    QTest::newRow("a source with an address") << QStringList() << "1|BROAD|0|100|6@Box@1@127.0.0.1@6681"_s
                                              << "s6=Box(0)p6 127.0.0.1:6681"_s
                                              << "h.sourcesChanged"_s;
    QTest::newRow("a source that loses its player") << QStringList{player} << "1|BROAD|0|100|6@Box@0"_s
                                                    << "s6=Box(0)"_s
                                                    << "s6.nameChanged s6.playerChanged h.sourcesChanged"_s;
    QTest::newRow("routes, set") << QStringList(toRoute.mid(0, 2)) << toRoute.at(2) << routed
                                 << "o5.selectedSourceChanged h.routesUpdated"_s;
    QTest::newRow("routes, unchanged") << toRoute << toRoute.at(2) << routed << "h.routesUpdated"_s;
    QTest::newRow("routes, changed") << toRoute << "1|BROAD|2|100|5@3"_s
                                     << QString(routed).replace("<4"_s, "<3"_s)
                                     << "o5.selectedSourceChanged h.routesUpdated"_s;
    QTest::newRow("routes, cleared by the output alone")
        << toRoute << "1|BROAD|2|100|5"_s << QString(routed).replace("<4"_s, "<-1"_s)
        << "o5.selectedSourceChanged h.routesUpdated"_s;
    QTest::newRow("state of an output")
        << QStringList{"1|BROAD|1|100|5@E"_s} << "1|BROAD|3|100|5|70|1|-3|0|4|9"_s
        << "o5=E(70 1 -3 0 4 9)<-1"_s
        << "o5.volumeChanged o5.muteChanged o5.bassChanged o5.middleChanged "
           "o5.trebleChanged o5.loudnessChanged"_s;
    QTest::newRow("state of an output, unchanged")
        << QStringList{"1|BROAD|1|100|5@E"_s} << "1|BROAD|3|100|5|0|0|0|0|0|0"_s
        << "o5=E(0 0 0 0 0 0)<-1"_s
        << "o5.volumeChanged o5.muteChanged o5.bassChanged o5.middleChanged "
           "o5.trebleChanged o5.loudnessChanged"_s;
    QTest::newRow("volume of a source") << QStringList{sources} << "1|BROAD|4|100|3|44"_s
                                        << "s3=Radio(44) s4=Deck(0)"_s
                                        << "s3.volumeChanged"_s;
    QTest::newRow("AirPlay on")
        << QStringList{player} << airPlayOn << "s6=Box(0)p6 :6680*T/A/R/I"_s
        << "p6.airPlayChanged p6.airPlayTrackChanged p6.airPlayAlbumChanged p6.airPlayArtistChanged p6.airPlayImageChanged"_s;
    QTest::newRow("AirPlay off")
        << QStringList{player, airPlayOn} << "1|BROAD|10|100|6|0|a|b|c|d"_s
        << "s6=Box(0)p6 :6680"_s
        << "p6.airPlayChanged p6.airPlayTrackChanged p6.airPlayAlbumChanged p6.airPlayArtistChanged p6.airPlayImageChanged"_s;
    QTest::newRow("AirPlay with nine fields keeps the texts")
        << QStringList{player, airPlayOn} << "1|BROAD|10|100|6|1|a|b|c"_s
        << "s6=Box(0)p6 :6680*T/A/R/I"_s
        << "p6.airPlayChanged"_s;
    QTest::newRow("preset slots, in their order") << QStringList() << "1|BROAD|25|100|9@Nine@m3u:n|2@Two@"_s
                                                  << "e9=Nine<m3u:n e2=Two<"_s
                                                  << "h.playlistEntriesChanged"_s;
    QTest::newRow("preset slots, emptied") << QStringList{"1|BROAD|25|100|9@Nine@m3u:n"_s}
                                           << "1|BROAD|25|100"_s << QString() << "h.playlistEntriesChanged"_s;
}

void TestModel::messages()
{
    QFETCH(const QStringList, before);
    QFETCH(const QString, message);
    QFETCH(const QString, mirror);
    QFETCH(const QString, heard);
    Mirror test;
    test.feed(before);
    test.listen();
    test.feed({message});
    QCOMPARE(test.log.take().join(QLatin1Char(' ')), heard);
    QCOMPARE(mirrorOf(&test.halvora), mirror);
}

void TestModel::repeatedSourceListMakesANewPlayer()
{
    RawMusicServer server;
    QVERIFY(server.listen());
    Mirror test;
    const QString list = "1|BROAD|0|100|6@Box@1@127.0.0.1@"_s + server.port();
    test.feed({list});
    const std::unique_ptr<HalvoraPlayer> former(test.halvora.sourceAt(6)->player());
    test.feed({list, "1|BROAD|0|100|6@Box@1"_s});
    QVERIFY(test.halvora.sourceAt(6)->player() != former.get());
    QCOMPARE(test.halvora.sourceAt(6)->player()->ipAddress(), QString());
    QTRY_COMPARE(server.liveSockets(), 2); // the former ones stay connected
}

void TestModel::changedPlaylistsReachEachPlayer()
{
    RawMusicServer server;
    QVERIFY(server.listen());
    PlayerTiming::current().tick = 100;
    Mirror test;
    test.feed({"1|BROAD|0|100|6@A@1@127.0.0.1@%1|2@B@1@127.0.0.1@%1|4@C@0"_s.arg(server.port())});
    QTRY_COMPARE(server.methods().count("core.playlists.as_list"_s), 2); // each player's first poll
    server.texts.clear();
    test.feed({"1|BROAD|26"_s});
    for (const int index : {2, 6})
        test.halvora.sourceAt(index)->player()->actionNext(); // marks where the answer to the notice ends
    QTRY_COMPARE(server.methods().count("core.playback.next"_s), 2);
    QCOMPARE(server.methods().count("core.playlists.as_list"_s), 2);
}

void TestModel::linkIsHeardAndReplaced()
{
    Halvora halvora;
    HalvoraConnThread first;
    HalvoraConnThread second;
    const QSignalSpy changes(&halvora, &Halvora::connPointerChanged);
    halvora.setConnPointer(&first);
    halvora.setConnPointer(&first);
    halvora.setConnPointer(&second);
    QCOMPARE(changes.size(), 3);
    QCOMPARE(halvora.connPointer(), &second);
    Q_EMIT first.halvoraCommandReceived(fieldsOf("1|BROAD|1|100|5@E"_s)); // the earlier one stays connected
    Q_EMIT second.halvoraCommandReceived(fieldsOf("1|BROAD|1|100|6@F"_s));
    QCOMPARE(listed(halvora.outputs()).size(), 2);
    const QSignalSpy sent(&second, &HalvoraConnThread::requireSendCommand);
    halvora.actionDeletePlaylist("x"_s);
    QCOMPARE(sent.size(), 1);
}

void TestModel::actions_data()
{
    QTest::addColumn<Action>("action");
    QTest::addColumn<QString>("text"); // empty: nothing is sent
    const auto row = [](const char *name, Action action, const QString &text = QString()) {
        QTest::newRow(name) << action << text;
    };
    row(
        "volume", [](Halvora *h) { h->actionSetVolumeForOutput(30, 7); }, "2000|100|7|30"_s);
    row("volume, by a position", [](Halvora *h) { h->actionSetVolumeForOutput(30, 0); });
    row(
        "mute", [](Halvora *h) { h->actionSetMuteForOutput(true, 12); }, "2001|100|12|1"_s);
    row(
        "mute off", [](Halvora *h) { h->actionSetMuteForOutput(false, 3); }, "2001|100|3|0"_s);
    row("mute, unknown output", [](Halvora *h) { h->actionSetMuteForOutput(true, 2); });
    row(
        "equaliser", [](Halvora *h) { h->actionSetEqualizerForOutput("7|1|-2|3|4"_s); },
        "2002|100|7|1|-2|3|4"_s);
    row(
        "equaliser, unchecked", [](Halvora *h) { h->actionSetEqualizerForOutput("any thing"_s); },
        "2002|100|any thing"_s);
    row(
        "matrix, first and first", [](Halvora *h) { h->actionSetMatrixSetting(0, 0); }, "2003|100|3@2"_s);
    row(
        "matrix, last and last", [](Halvora *h) { h->actionSetMatrixSetting(1, 2); }, "2003|100|12@9"_s);
    row(
        "matrix, no source", [](Halvora *h) { h->actionSetMatrixSetting(-1, 1); }, "2003|100|7@-1"_s);
    row("matrix, source -2", [](Halvora *h) { h->actionSetMatrixSetting(-2, 0); });
    row("matrix, source by index", [](Halvora *h) { h->actionSetMatrixSetting(2, 0); });
    row("matrix, output by index", [](Halvora *h) { h->actionSetMatrixSetting(0, 3); });
    row("matrix, output -1", [](Halvora *h) { h->actionSetMatrixSetting(0, -1); });
    row("matrix, neither", [](Halvora *h) { h->actionSetMatrixSetting(-1, -1); });
    row(
        "volume of a source", [](Halvora *h) { h->actionSetVolumeForSource(-5, 9); }, "2004|100|9|-5"_s);
    row("volume of a source, by a position", [](Halvora *h) { h->actionSetVolumeForSource(5, 1); });
    row(
        "rename", [](Halvora *h) { h->actionRenamePlaylist("m3u:a"_s, u8"Früh|stück"_s); },
        u8"2010|100|m3u:a|Früh|stück"_s);
    row(
        "delete", [](Halvora *h) { h->actionDeletePlaylist("m3u:a b"_s); }, "2011|100|m3u:a b"_s);
    row(
        "associate", [](Halvora *h) { h->actionAssociatePlaylist(3, "x"_s); }, "2012|100|x|3"_s);
}

void TestModel::actions()
{
    QFETCH(const Action, action);
    QFETCH(const QString, text);
    Mirror test;
    HalvoraConnThread link;
    test.halvora.setConnPointer(&link);
    test.feed({"1|BROAD|1|100|7@K|3@H|12@A"_s, "1|BROAD|0|100|9@T@0|2@D@0"_s});
    const QString before = mirrorOf(&test.halvora);
    const QSignalSpy sent(&link, &HalvoraConnThread::requireSendCommand);
    test.listen();
    action(&test.halvora);
    QCOMPARE(sent.size(), text.isEmpty() ? 0 : 1);
    QCOMPARE(sent.value(0).value(0).toString(), text);
    QCOMPARE(test.log.take(), QStringList());
    QCOMPARE(mirrorOf(&test.halvora), before);
}

void TestModel::actionComesBackAsAMessage_data()
{
    QTest::addColumn<Action>("action");
    QTest::addColumn<QString>("was");
    QTest::addColumn<QString>("is");
    QTest::newRow("volume") << Action([](Halvora *h) { h->actionSetVolumeForOutput(66, 7); }) << "(20 "_s
                            << "(66 "_s;
    QTest::newRow("mute") << Action([](Halvora *h) { h->actionSetMuteForOutput(false, 3); }) << "(30 1"_s
                          << "(30 0"_s;
    QTest::newRow("equaliser") << Action([](Halvora *h) { h->actionSetEqualizerForOutput("7|9|8|-7|6"_s); })
                               << "1 2 3 4)"_s
                               << "9 8 -7 6)"_s;
    QTest::newRow("route") << Action([](Halvora *h) { h->actionSetMatrixSetting(1, 1); }) << "<2"_s
                           << "<9"_s;
    QTest::newRow("no route") << Action([](Halvora *h) { h->actionSetMatrixSetting(-1, 0); }) << "<9"_s
                              << "<-1"_s;
    QTest::newRow("volume of a source")
        << Action([](Halvora *h) { h->actionSetVolumeForSource(9, 2); }) << "Deck(0)"_s
        << "Deck(9)"_s;
    QTest::newRow("preset slot") << Action([](Halvora *h) { h->actionAssociatePlaylist(1, "m3u:b"_s); })
                                 << "m3u:a"_s
                                 << "m3u:b"_s;
}

void TestModel::actionComesBackAsAMessage()
{
    QFETCH(const Action, action);
    QFETCH(const QString, was);
    QFETCH(const QString, is);
    House house;
    house.dial();
    QCOMPARE(mirrorOf(&house.halvora), houseMirror);
    action(&house.halvora);
    QTRY_COMPARE(mirrorOf(&house.halvora), QString(houseMirror).replace(was, is));
}

void TestModel::cutDumpsGiveTheSameMirror()
{
    House house;
    house.device.faults().splitPauseMs = 2;
    int streamSize = 0;
    for (const DeviceMessages::Broad &broad : DeviceMessages::dump(house.device.state()))
        streamSize += (DeviceMessages::text(1, broad).size() / 16 + 1) * 16 * 4 / 3;
    for (int cut = 1; cut < streamSize; ++cut) {
        Halvora halvora;
        halvora.setConnPointer(&house.link);
        house.device.faults().cutAt = cut;
        house.dial();
        QVERIFY2(mirrorOf(&halvora) == houseMirror, qPrintable("cut at %1"_s.arg(cut)));
    }
}

void TestModel::oddMessages_data()
{
    messageColumns();
    const QStringList house{"1|BROAD|1|100|0@Z|3@C"_s, "1|BROAD|0|100|4@D@0|6@Box@1"_s,
                            "1|BROAD|2|100|3@4"_s};
    const QString mirror = "o0=Z(0 0 0 0 0 0)<-1 o3=C(0 0 0 0 0 0)<4 s4=D(0) s6=Box(0)p6 :6680"_s;
    const auto ignored = [&](const QString &message, const QString &heard = QString()) {
        QTest::newRow(qPrintable(message)) << house << message << mirror << heard;
    };
    for (const QString &code : {"27"_s, "-1"_s, "5"_s, "20"_s, "24"_s, "500"_s})
        ignored("1|BROAD|%1|100|3@4"_s.arg(code));
    ignored("1|BROAD"_s);
    ignored("1|BROAD|x|100"_s, "h.sourcesChanged"_s); // reads as 0, the list of sources
    ignored("1|BROAD|0|100|4@D||9@E"_s, "h.sourcesChanged"_s);
    ignored("1|BROAD|1|100|9||"_s, "h.outputsChanged"_s);
    ignored("1|BROAD|2"_s, "h.routesUpdated"_s);
    ignored("1|BROAD|2|100||3@-1|3@99|77@4|77|3@4@x"_s, "h.routesUpdated"_s);
    ignored("1|BROAD|3|100|3|1|1|1|1|1"_s);
    ignored("1|BROAD|3|100|99|1|1|1|1|1|1"_s);
    ignored("1|BROAD|4|100|4"_s);
    ignored("1|BROAD|4|100|99|1"_s);
    ignored("1|BROAD|10|100|6"_s);
    ignored("1|BROAD|10|100|4|1|T|A|R|I"_s); // has no player
    ignored("1|BROAD|10|100|99|1|T|A|R|I"_s);
    ignored("1|BROAD|25|100|1@Name||"_s, "h.playlistEntriesChanged"_s);
    ignored("1|BROAD|26"_s);
    QTest::newRow("numbers that are none count as 0")
        << house << "1|BROAD|3|100|x|a||1.5|b|c|d"_s << mirror
        << "o0.volumeChanged o0.muteChanged o0.bassChanged o0.middleChanged o0.trebleChanged o0.loudnessChanged"_s;
    QTest::newRow("flags are set by 1 alone")
        << QStringList{"1|BROAD|1|100|3@C"_s} << "1|BROAD|3|100|3|0|true|0|0|0|0"_s
        << "o3=C(0 0 0 0 0 0)<-1"_s
        << "o3.volumeChanged o3.muteChanged o3.bassChanged o3.middleChanged o3.trebleChanged o3.loudnessChanged"_s;
    QTest::newRow("an address without a port is none") << QStringList() << "1|BROAD|0|100|6@Box@1@10.0.0.1"_s
                                                       << "s6=Box(0)p6 :6680"_s
                                                       << "h.sourcesChanged"_s;
}

void TestModel::oddMessages()
{
    messages();
}

void TestModel::actionsWithoutALinkDoNothing()
{
    Mirror test;
    test.feed({outputs, sources});
    QObject noLink;
    for (QObject *link : {static_cast<QObject *>(nullptr), &noLink}) {
        test.halvora.setConnPointer(link);
        QCOMPARE(test.halvora.connPointer(), nullptr);
        test.halvora.actionSetVolumeForOutput(1, 5);
        test.halvora.actionSetMatrixSetting(0, 0);
        test.halvora.actionDeletePlaylist("x"_s);
    }
}

HALVORA_SUITE_MAIN(TestModel)
#include "tst_model.moc"
