// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/HalvoraConnThread.h"
#include "model/Halvora.h"
#include "player/PlayerTiming.h"
#include "support/Listed.h"
#include "support/RawMusicServer.h"
#include "support/Rows.h"
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
        texts << "s%1=%2(%3)"_s.arg(source->index()).arg(source->name()).arg(source->volume());
        if (player)
            texts.last() += "p%1 %2:%3"_s.arg(player->sourceRef()).arg(player->ipAddress(), player->port());
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

    // What goes wrong

    void oddMessages_data();
    void oddMessages();
    void actionsWithoutALinkDoNothing();
};

namespace {

// Messages are written without their head "1|BROAD|", outputs that are flat and silent as "()".
const QString messageColumns = "before message mirror heard"_s; // `heard`: the signals of the message alone

QStringList received(const QString &messages)
{
    QStringList whole;
    for (const QString &message : messages.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        whole << "1|BROAD|"_s + message;
    return whole;
}

// "o5.all": the signals of each part of its state, in their order.
QString signalsOf(QString heard)
{
    for (const QString &object : {"o0"_s, "o3"_s, "o5"_s})
        heard.replace(object + ".all"_s,
                      "%1.volumeChanged %1.muteChanged %1.bassChanged %1.middleChanged %1.trebleChanged "
                      "%1.loudnessChanged"_s.arg(object));
    heard.replace("o5.routed"_s, "o5.selectedSourceChanged h.routesUpdated"_s);
    return heard.replace("p6.all"_s,
                         "p6.airPlayChanged p6.airPlayTrackChanged p6.airPlayAlbumChanged "
                         "p6.airPlayArtistChanged p6.airPlayImageChanged"_s);
}

} // namespace

void TestModel::messages_data()
{
    Rows::add(messageColumns, R"(
        outputs, in ascending order ; ; 1|100|5@E|2@B|9@I ; o2=B()<-1 o5=E()<-1 o9=I()<-1 ; h.outputsChanged
        renamed ; 1|100|5@E|2@B ; 1|100|5@Five@x ; o2=B()<-1 o5=Five()<-1 ; o5.nameChanged h.outputsChanged
        outputs, none ; ; 1 ; ; h.outputsChanged
        sources, in ascending order ; ; 0|100|4@Deck@0|3@Radio@0 ; s3=Radio(0) s4=Deck(0) ; h.sourcesChanged
        sources, none ; 0|100|4@Deck@0|3@Radio@0 ; 0|100 ; s3=Radio(0) s4=Deck(0) ; h.sourcesChanged
        an address ; ; 0|100|6@Box@1@127.0.0.1@6681 ; s6=Box(0)p6 127.0.0.1:6681 ; h.sourcesChanged
        a lost player ; 0|100|6@B@1 ; 0|100|6@B@0 ; s6=B(0) ; s6.nameChanged s6.playerChanged h.sourcesChanged
        routes, set ; 1|100|5@E 0|100|4@D@0 ; 2|100|5@4 ; o5=E()<4 s4=D(0) ; o5.routed
        routes, unchanged ; 1|100|5@E 0|100|4@D@0 2|100|5@4 ; 2|100|5@4 ; o5=E()<4 s4=D(0) ; h.routesUpdated
        routes changed ; 1|100|5@E 0|100|4@D@0|3@R@0 2|100|5@4 ; 2|100|5@3 ; o5=E()<3 s3=R(0) s4=D(0) ; o5.routed
        routes cleared ; 1|100|5@E 0|100|4@D@0 2|100|5@4 ; 2|100|5 ; o5=E()<-1 s4=D(0) ; o5.routed
        state of an output ; 1|100|5@E ; 3|100|5|70|1|-3|0|4|9 ; o5=E(70 1 -3 0 4 9)<-1 ; o5.all
        state of an output, unchanged ; 1|100|5@E ; 3|100|5|0|0|0|0|0|0 ; o5=E()<-1 ; o5.all
        a volume ; 0|100|4@Deck@0|3@Radio@0 ; 4|100|3|44 ; s3=Radio(44) s4=Deck(0) ; s3.volumeChanged
        AirPlay on ; 0|100|6@Box@1 ; 10|100|6|1|T|A|R|I ; s6=Box(0)p6 :6680*T/A/R/I ; p6.all
        AirPlay off ; 0|100|6@Box@1 10|100|6|1|T|A|R|I ; 10|100|6|0 ; s6=Box(0)p6 :6680 ; p6.all
        no image ; 0|100|6@B@1 10|100|6|1|T|A|R|I ; 10|100|6|1|a|b|c ; s6=B(0)p6 :6680*T/A/R/I ; p6.airPlayChanged
        preset slots ; ; 25|100|9@Nine@m3u:n|2@Two@ ; e9=Nine<m3u:n e2=Two< ; h.playlistEntriesChanged
        preset slots, emptied ; 25|100|9@Nine@m3u:n ; 25|100 ; ; h.playlistEntriesChanged)"_s);
}

void TestModel::messages()
{
    QFETCH(const QString, before);
    QFETCH(const QString, message);
    QFETCH(QString, mirror);
    QFETCH(const QString, heard);
    Mirror test;
    test.feed(received(before));
    test.listen();
    test.feed(received(message));
    QCOMPARE(test.log.take().join(QLatin1Char(' ')), signalsOf(heard));
    QCOMPARE(mirrorOf(&test.halvora), mirror.replace("()"_s, "(0 0 0 0 0 0)"_s));
}

void TestModel::repeatedSourceListMakesANewPlayer()
{
    RawMusicServer server;
    QVERIFY(server.listen());
    Mirror test;
    const QString list = "1|BROAD|0|100|6@Box@1@127.0.0.1@"_s + server.port();
    test.feed({list});
    const HalvoraPlayer *former = test.halvora.sourceAt(6)->player();
    test.feed({list, "1|BROAD|0|100|6@Box@1"_s});
    QVERIFY(test.halvora.sourceAt(6)->player() != former);
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
    using H = Halvora *;
    const auto row = [](const char *name, const QString &text, Action action) {
        QTest::newRow(name) << action << text;
    };
    row("volume", "2000|100|7|30"_s, [](H h) { h->actionSetVolumeForOutput(30, 7); });
    row("volume, by a position", {}, [](H h) { h->actionSetVolumeForOutput(30, 0); });
    row("mute", "2001|100|12|1"_s, [](H h) { h->actionSetMuteForOutput(true, 12); });
    row("mute off", "2001|100|3|0"_s, [](H h) { h->actionSetMuteForOutput(false, 3); });
    row("mute, unknown output", {}, [](H h) { h->actionSetMuteForOutput(true, 2); });
    row("equaliser, unchecked", "2002|100|any thing"_s,
        [](H h) { h->actionSetEqualizerForOutput("any thing"_s); });
    row("matrix, last and last", "2003|100|12@9"_s, [](H h) { h->actionSetMatrixSetting(1, 2); });
    row("matrix, no source", "2003|100|7@-1"_s, [](H h) { h->actionSetMatrixSetting(-1, 1); });
    row("matrix, source -2", {}, [](H h) { h->actionSetMatrixSetting(-2, 0); });
    row("matrix, source by index", {}, [](H h) { h->actionSetMatrixSetting(2, 0); });
    row("matrix, output by index", {}, [](H h) { h->actionSetMatrixSetting(0, 3); });
    row("matrix, output -1", {}, [](H h) { h->actionSetMatrixSetting(0, -1); });
    row("source", "2004|100|9|-5"_s, [](H h) { h->actionSetVolumeForSource(-5, 9); });
    row("source, by a position", {}, [](H h) { h->actionSetVolumeForSource(5, 1); });
    row("rename", u8"2010|100|m3u:a|Früh|stück"_s,
        [](H h) { h->actionRenamePlaylist("m3u:a"_s, u8"Früh|stück"_s); });
    row("delete", "2011|100|m3u:a b"_s, [](H h) { h->actionDeletePlaylist("m3u:a b"_s); });
    row("associate", "2012|100|x|3"_s, [](H h) { h->actionAssociatePlaylist(3, "x"_s); });
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

void TestModel::oddMessages_data()
{
    QString ignored;
    for (const QString &row :
         {"27|100|3@4"_s, "-1|100|3@4"_s, "5|100|3@4"_s, "20|100|3@4"_s,
          "x|100 ; h.sourcesChanged"_s, // reads as 0, the list of sources
          "0|100|4@D||9@E ; h.sourcesChanged"_s, "1|100|9|| ; h.outputsChanged"_s, "2 ; h.routesUpdated"_s,
          "2|100||3@-1|3@99|77@4|77|3@4@x ; h.routesUpdated"_s, "3|100|3|1|1|1|1|1"_s,
          "3|100|99|1|1|1|1|1|1"_s, "4|100|4"_s, "4|100|99|1"_s, "10|100|6"_s, "10|100|4|1|T|A|R|I"_s,
          "10|100|99|1|T|A|R|I"_s, "25|100|1@Name|| ; h.playlistEntriesChanged"_s, "26"_s,
          "3|100|x|a||1.5|b|c|d ; o0.all"_s}) { // numbers that are none count as 0
        ignored += "%1 ; 1|100|0@Z|3@C 0|100|4@D@0|6@Box@1 2|100|3@4 ; %1 ; "
                   "o0=Z()<-1 o3=C()<4 s4=D(0) s6=Box(0)p6 :6680 ; %2\n"_s.arg(row.section(" ; "_s, 0, 0),
                                                                               row.section(" ; "_s, 1));
    }
    Rows::add(messageColumns, ignored + R"(
        flags are set by 1 alone ; 1|100|3@C ; 3|100|3|0|true|0|0|0|0 ; o3=C()<-1 ; o3.all
        an address without a port is none ; ; 0|100|6@B@1@10.0.0.1 ; s6=B(0)p6 :6680 ; h.sourcesChanged)"_s);
}

void TestModel::oddMessages()
{
    messages();
}

void TestModel::actionsWithoutALinkDoNothing()
{
    Mirror test;
    test.feed(received("1|100|5@E|2@B 0|100|4@Deck@0|3@Radio@0"_s));
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
