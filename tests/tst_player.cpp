// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/PlayerTiming.h"
#include "support/Listed.h"
#include "support/Rows.h"
#include "support/SignalLog.h"
#include "support/Studio.h"
#include "support/Suite.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace {

using Action = std::function<void(HalvoraPlayer *)>;

const QStringList fullPoll{
    "core.get_uri_schemes"_s,      "core.playback.get_state"_s,   "core.playback.get_current_track"_s,
    "core.tracklist.get_random"_s, "core.tracklist.get_repeat"_s, "core.tracklist.get_tl_tracks"_s,
    "core.playlists.as_list"_s};

QString songText(const Song *song)
{
    return song ? QStringList{song->uri(),
                              song->name(),
                              song->album(),
                              song->albumUri(),
                              song->artists().join(QLatin1Char(';')),
                              song->artistsUri().join(QLatin1Char(';')),
                              song->artistsString(),
                              QString::number(song->duration())}
                      .join(QLatin1Char('|'))
                : "none"_s;
}

} // namespace

Q_DECLARE_METATYPE(Action)

class TestPlayer final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const PlayerTiming times; // what the product lives by
        QCOMPARE((QList<int>{times.tick, times.dropRetry, times.errorRetry}), (QList<int>{1000, 500, 1000}));
    }

    // What works

    void pollsComeEverySixtyTicks();
    void playingAsksForTheTimeFirst();
    void requests_data();
    void requests();
    void resumesWhatIsPaused();
    void events_data();
    void events();
    void replies_data();
    void replies();
    void tracks_data();
    void tracks();
    void unchangedTrackKeepsItsSong();
    void queueIsInOrderOfItsIds();
    void picturesOfTheServerAreCompleted();
    void refusedRemovalIsSentInTheOtherForm();

    // What goes wrong

    void repliesForNobodyAreIgnored();
    void dropComesToRest();
    void serverThatIsDown();
    void serverThatGoesDown();
    void diallingStopsTheTicks();
    void startsAndStopsInQuickSuccession();
    void stopEndsRetries();
    void stoppedPlayerSendsNothing();
};

// Also across a reconnection, which keeps the countdown and the mirror.
void TestPlayer::pollsComeEverySixtyTicks()
{
    ConnectedStudio studio;
    QCOMPARE(studio.server.paths, QStringList{"/mopidy/ws"_s});
    QCOMPARE(studio.server.texts, QStringList());
    studio.player.updateTrackInfo(json(track));
    studio.sent();
    studio.connect();
    studio.player.refreshTimerTimeout();
    QStringList expected;
    for (int id = 0; id < fullPoll.size(); ++id)
        expected << request(id, fullPoll.at(id));
    QCOMPARE(studio.sent(), expected);
    const QString before = stateOf(&studio.player);
    studio.connect();
    QCOMPARE(stateOf(&studio.player), before);
    for (int tick = 1; tick < 60; ++tick)
        studio.player.refreshTimerTimeout();
    QCOMPARE(studio.sentMethods(), QStringList());
    studio.player.refreshTimerTimeout();
    QCOMPARE(studio.sentMethods(), fullPoll);
}

void TestPlayer::playingAsksForTheTimeFirst()
{
    ConnectedStudio studio;
    const QString time = "core.playback.get_time_position"_s;
    studio.player.setPlayPause(HalvoraPlayer::Playing);
    studio.player.refreshTimerTimeout();
    studio.player.refreshTimerTimeout();
    QCOMPARE(studio.sentMethods(), QStringList{time} + fullPoll + QStringList{time});
    studio.player.setPlayPause(HalvoraPlayer::Paused);
    studio.player.refreshTimerTimeout();
    QCOMPARE(studio.sentMethods(), QStringList());
}

void TestPlayer::requests_data()
{
    QTest::addColumn<Action>("act");
    QTest::addColumn<QString>("requests");
    using P = HalvoraPlayer *;
    const auto row = [](const char *requests, const Action &act) {
        QTest::newRow(requests) << act << QString::fromUtf8(requests);
    };
    const auto turned = [](auto turn, auto act) {
        return [=](P p) {
            (p->*turn)(true);
            (p->*act)();
        };
    };
    const QStringList two{"a"_s, "b"_s};
    row("core.playback.play", [](P p) { p->actionPlay(); });
    row("core.playback.pause", [](P p) { p->actionPause(); });
    row("core.playback.next", [](P p) { p->actionNext(); });
    row(R"(core.tracklist.set_repeat {"value":true})",
        turned(&HalvoraPlayer::setShuffle, &HalvoraPlayer::actionRepeat));
    row(R"(core.tracklist.set_repeat {"value":false})",
        turned(&HalvoraPlayer::setRepeat, &HalvoraPlayer::actionRepeat));
    row(R"(core.tracklist.set_random {"value":true})",
        turned(&HalvoraPlayer::setRepeat, &HalvoraPlayer::actionShuffle));
    row(R"(core.tracklist.set_random {"value":false})",
        turned(&HalvoraPlayer::setShuffle, &HalvoraPlayer::actionShuffle));
    row(R"(core.playback.play {"tlid":5})", [](P p) { p->actionPlayTrack(5); });
    row("core.tracklist.clear", [](P p) { p->actionClearQueue(); });
    row(R"(core.tracklist.add {"at_position":0,"uris":["a","b"]})",
        [=](P p) { p->actionPlayAdd(two, 0, true); });
    row(R"(core.playback.play {"tlid":7})",
        [](P p) { p->actionPlayNow(json(R"([{"tlid":7},{"tlid":8}])"_s)); });
    row(R"(core.playback.stop core.tracklist.clear core.tracklist.add {"uris":["a","b"]})",
        [=](P p) { p->actionResetQueueWithUris(two); });
    row(R"(core.library.get_images {"uris":[]})", [](P p) { p->actionLookupImages({}, nullptr, ""); });
    row("core.playlists.as_list", [](P p) { p->actionRefreshPlaylists(); });
    row(R"(core.playlists.create {"name":"x \"y\"","uri_scheme":"m3u"})",
        [](P p) { p->actionCreatePlaylist("x \"y\""_s, false); });
    row(R"(core.playlists.lookup {"uri":"m3u:x"} core.playlists.save {"playlist":{"name":"X","tracks":)"
        R"([{"uri":"old"},{"__model__":"Track","name":"n","uri":"u"},)"
        R"({"__model__":"Album","name":"n","uri":"u"}],"z":1}})",
        [](P p) {
            QList<PlayerItem *> items{new PlayerItem(p), new PlayerItem(p)};
            for (PlayerItem *item : items) {
                item->setUri("u"_s);
                item->setName("n"_s);
            }
            items.first()->setType("track"_s);
            items.last()->setType("directory"_s);
            p->actionEditPlaylistWithUris("m3u:x"_s, items);
            p->updatePlaylistJson(json(R"({"name":"X","tracks":[{"uri":"old"}],"z":1})"_s));
        });
}

void TestPlayer::requests()
{
    QFETCH(const Action, act);
    QFETCH(const QString, requests);
    ConnectedStudio studio;
    act(&studio.player);
    QCOMPARE(studio.asked().join(QLatin1Char(' ')), requests);
}

// Nothing changes before the server says so.
void TestPlayer::resumesWhatIsPaused()
{
    for (const auto state : {HalvoraPlayer::Paused, HalvoraPlayer::Playing}) {
        ConnectedStudio studio;
        studio.player.setPlayPause(state);
        SignalLog log;
        log.watch(&studio.player, "p"_s);
        studio.player.actionPlay();
        studio.player.actionPause();
        studio.player.actionShuffle();
        QCOMPARE(
            studio.sentMethods(),
            (QStringList{"core.playback.resume"_s, "core.playback.pause"_s, "core.tracklist.set_random"_s}));
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(stateOf(&studio.player).left(5), "%1 0 0"_s.arg(state));
    }
}

void TestPlayer::events_data()
{
    Rows::add("event heard methods"_s,
              R"(
        ; {"event":"playback_state_changed","new_state":"playing"} ; p.playPauseChanged
        ; {"event":"playback_state_changed"} ; p.playPauseChanged
        ; {"event":"options_changed"} ; ; core.tracklist.get_random core.tracklist.get_repeat
        ; {"event":"track_playback_started",%1} ; %2 ; core.library.get_images
        ; {"event":"track_playback_ended",%1} ; %2 ; core.library.get_images
        ; {"event":"track_playback_",%1} ; %2 ; core.library.get_images
        ; {"event":"track_playback_ended"} ; p.currentTlidChanged
        ; {"event":"track_playback_x","tl_track":{"track":{"uri":"now"}}} ; p.currentTlidChanged ; core.library.get_images
        ; {"event":"stream_title_changed","title":"T"} ; s.nameChanged
        ; {"event":"tracklist_changed"} ; ; core.tracklist.get_tl_tracks
        ; {"event":"playlist_changed"} ; ; core.playlists.as_list
        ; {"event":"playlist_"} ; ; core.playlists.as_list
        ; {"event":"playlists_loaded"}
        ; {"event":"Playlist_changed"}
        ; {"event":"tracklist_changed2"}
        ; {"event":"track_playback"}
        ; {"event":""}
        ; {"event":5}
        an event, whatever else it has ; {"event":null,"id":"0","result":1})"_s.arg(
                  R"("tl_track":{"tlid":4,"track":{"uri":"n:1"}})"_s,
                  "p.currentSongChanged p.currentTlidChanged"_s));
}

void TestPlayer::events()
{
    QFETCH(const QString, event);
    QFETCH(const QString, heard);
    QFETCH(const QString, methods);
    ConnectedStudio studio;
    Song song;
    song.setUri("now"_s);
    studio.player.setCurrentSong(&song);
    studio.player.setPlayPause(HalvoraPlayer::Playing);
    Receiver receiver;
    studio.player.actionLookup({}, &receiver, "browseAnything");
    studio.sent();
    SignalLog log;
    log.watch(&studio.player, "p"_s);
    log.watch(&song, "s"_s);
    studio.say(event);
    QStringList seen = log.take();
    seen.removeLast(); // of settle()
    QCOMPARE(seen.join(QLatin1Char(' ')), heard);
    QCOMPARE(studio.sentMethods().join(QLatin1Char(' ')), methods);
    QCOMPARE(receiver.calls, QStringList());
}

void TestPlayer::replies_data()
{
    // Request 0 wants "images", request 1 wants "browse".
    Rows::add("text calls"_s, R"(
        ; {"id":"0","result":[1]} ; images [1]
        ; {"id":"1","result":{"a":2}} ; browse 1 {"a":2}
        ; {"id":"1","result":null} ; browse 1 null
        ; {"id":"1","error":{"code":1}} ; browse 1 undefined
        no text counts as 0 ; {"id":1,"result":5} ; images 5
        no number counts as 0 ; {"id":"abc","result":5} ; images 5
        nothing counts as 0 ; {"result":5} ; images 5
        ; {"id":"99","result":5}
        ; {"id":"-1","result":5}
        ; [{"id":"0","result":5}]
        ; {"id":"0","resu
        ; rubbish)"_s);
}

void TestPlayer::replies()
{
    QFETCH(const QString, text);
    QFETCH(const QString, calls);
    ConnectedStudio studio;
    Receiver receiver;
    QCOMPARE(studio.player.actionLookupImages({"a"_s}, &receiver, "imagesReceived"), 0);
    QCOMPARE(studio.player.actionBrowse("a"_s, &receiver, "browseAnything"), 1);
    studio.server.send(text);
    studio.say(text); // a second one finds nobody
    QCOMPARE(receiver.calls.join(QLatin1Char(' ')), calls);
}

void TestPlayer::tracks_data()
{
    QTest::addColumn<QString>("json");
    QTest::addColumn<QString>("song"); // uri, name, album, its uri, artists, their uris, joined, seconds
    const auto as = [](const QString &uri) { return QString(track).replace("local:a"_s, uri); };
    QTest::newRow("a file") << track << "local:a|A|Al|al:1|X;Y|ar:1;ar:3|X, Y|62"_s;
    QTest::newRow("a podcast") << as("podcast+http:a"_s) << "podcast+http:a|A|Co||AA||AA|62"_s;
    QTest::newRow("a station") << as("tunein:a"_s) << "tunein:a|A|Al|||||62"_s;
    QTest::newRow("another case") << as("Tunein:a"_s) << "Tunein:a|A|Al|al:1|X;Y|ar:1;ar:3|X, Y|62"_s;
    QTest::newRow("no plus") << as("podcast:a"_s) << "podcast:a|A|Al|al:1|X;Y|ar:1;ar:3|X, Y|62"_s;
    QTest::newRow("wrong types") << R"({"uri":"x","name":1,"length":"9","album":[],"artists":{"name":"n"}})"_s
                                 << "x|||||||0"_s;
    for (const QString &none : {"null"_s, R"({"name":"A"})"_s})
        QTest::newRow(qPrintable(none)) << none << "none"_s;
}

void TestPlayer::tracks()
{
    QFETCH(const QString, json);
    QFETCH(const QString, song);
    ConnectedStudio studio;
    QSignalSpy changes(&studio.player, &HalvoraPlayer::currentSongChanged);
    const bool isNew = song != "none"_s;
    studio.player.updateTrackInfo(::json(json));
    QCOMPARE(songText(studio.player.currentSong()), song);
    QCOMPARE(changes.size(), int(isNew));
    QCOMPARE(studio.sent(),
             isNew ? QStringList{request(0, "core.library.get_images"_s,
                                         R"({"uris":["%1"]})"_s.arg(song.section(QLatin1Char('|'), 0, 0)))}
                   : QStringList());
    // The same track in the queue, where no length is shown.
    studio.player.updateQueue(QJsonArray{QJsonObject{{"track"_s, ::json(json)}, {"tlid"_s, 1}}});
    if (isNew)
        QCOMPARE(songText(listed(studio.player.queue()).first()),
                 song.section(QLatin1Char('|'), 0, -2) + "|0"_s);
}

void TestPlayer::unchangedTrackKeepsItsSong()
{
    ConnectedStudio studio;
    studio.player.updateTrackInfo(json(track));
    Song *const song = studio.player.currentSong();
    studio.sent();
    SignalLog log;
    log.watch(&studio.player, "p"_s);
    log.watch(song, "s"_s);
    const QJsonValue renamed = json(QString(track).replace("\"A\""_s, "\"Other\""_s));
    studio.player.updateTrackInfo(renamed);
    QCOMPARE(studio.sentMethods(), QStringList{"core.library.get_images"_s}); // again, as there are none yet
    studio.player.updateTrackImages(json(R"({"local:a":[]})"_s));
    QCOMPARE(log.take(), QStringList());
    studio.player.updateTrackImages(json(R"({"local:a":[{"uri":"p","width":300},{"uri":"q"}]})"_s));
    QCOMPARE(song->smallImgPath() + song->mediumImgPath(), "qp"_s);
    studio.player.updateTrackInfo(renamed);
    QCOMPARE(studio.sentMethods(), QStringList());
    QCOMPARE(song->name(), "A"_s);
    studio.player.updateTrackInfo(json(R"({"uri":"local:b"})"_s));
    QVERIFY(studio.player.currentSong() != song);
    QCOMPARE(log.take(), (QStringList{"p.currentSongImageChanged"_s, "p.currentSongChanged"_s}));
}

void TestPlayer::queueIsInOrderOfItsIds()
{
    ConnectedStudio studio;
    QSignalSpy changes(&studio.player, &HalvoraPlayer::queueChanged);
    studio.player.updateQueue(
        json(R"([{"tlid":7,"track":{"uri":"g"}},{"tlid":3,"track":{"uri":"c"}},{"tlid":9},
        {"tlid":5,"track":{"uri":"e"}},{"track":{"uri":"z"}},{"track":{"uri":"y"}},3])"_s));
    QCOMPARE(studio.player.queueTlid(), (QList<int>{0, 3, 5, 7}));
    QCOMPARE(listed(studio.player.queue()).first()->uri(), "y"_s);
    const auto pictures = [&] {
        QStringList paths;
        for (const Song *song : listed(studio.player.queue()))
            paths << song->smallImgPath();
        return paths;
    };
    const QString same = R"([{"uri":"p","width":64}])"_s;
    studio.player.updateQueueImages(json(R"({"y":[],"c":%1,"e":%1,"g":7})"_s.arg(same)));
    QCOMPARE(pictures(), (QStringList{{}, "p"_s, "p"_s, {}}));
    studio.player.updateQueueImages(json(R"({"e":[{"uri":"q","width":9}]})"_s));
    QCOMPARE(pictures(), (QStringList{{}, "p"_s, "q"_s, {}})); // its neighbour keeps its own
    QCOMPARE(changes.size(), 1);
    for (const int row : {1, 4, -1}) // two of them are not there
        studio.player.actionRemoveTrackFromQueue(row);
    QCOMPARE(studio.sent(),
             (QStringList{request(0, "core.library.get_images"_s, R"({"uris":["g","c","e","z","y"]})"_s),
                          request(1, "core.tracklist.remove"_s, R"({"tlid":[3]})"_s)}));
    studio.player.updateQueue(json("[]"_s));
    QCOMPARE(studio.player.queueTlid(), QList<int>());
    QCOMPARE(changes.size(), 2);
    QCOMPARE(studio.sentMethods(), QStringList());
}

void TestPlayer::picturesOfTheServerAreCompleted()
{
    ConnectedStudio studio;
    Receiver receiver;
    studio.player.actionLookupImages({}, &receiver, "imagesReceived");
    studio.player.actionLookup({}, &receiver, "imagesReceived");
    const QString reply =
        R"({"id":"%1","result":{"a":[{"uri":"/p.png","width":3},{"uri":"//h/p"},{"uri":"http://h/p"},)"
        R"({"uri":""},{},5],"b":7}})"_s;
    studio.server.send(reply.arg(0));
    studio.say(reply.arg(1));
    const QString untouched = textOf(json(reply.arg(1)).toObject().value("result"_s));
    const QString address = "\"http://127.0.0.1:%1/p.png\""_s.arg(studio.server.port());
    QCOMPARE(receiver.calls,
             (QStringList{"images "_s + QString(untouched).replace("\"/p.png\""_s, address),
                          "images "_s + untouched}));
}

void TestPlayer::refusedRemovalIsSentInTheOtherForm()
{
    ConnectedStudio studio;
    studio.player.updateQueue(
        json(R"([{"tlid":3,"track":{}},{"tlid":5,"track":{}},{"tlid":8,"track":{}}])"_s));
    studio.connect(); // numbers begin again
    for (const int row : {0, 2, 1})
        studio.player.actionRemoveTrackFromQueue(row);
    studio.sent();
    const QString refusal = R"({"id":"%1","error":{"message":"unexpected keyword"}})"_s;
    for (const int id : {1, 1}) // the second one finds nobody
        studio.server.send(refusal.arg(id));
    studio.server.send(R"({"id":"2","result":null})"_s);
    studio.say(refusal.arg(0));
    const QString other = R"({"criteria":{"tlid":[%1]}})"_s;
    QCOMPARE(studio.sent(),
             (QStringList{request(4, "core.tracklist.remove"_s, other.arg(8)),
                          request(5, "core.tracklist.remove"_s, other.arg(3))}));
    studio.say(refusal.arg(4)); // not a third time
    QCOMPARE(studio.sentMethods(), QStringList());
}

void TestPlayer::repliesForNobodyAreIgnored()
{
    ConnectedStudio studio;
    auto deleted = std::make_unique<Receiver>();
    studio.player.actionBrowse("a"_s, deleted.get(), "browseAnything");
    deleted.reset();
    studio.say(R"({"id":"0","result":[]})"_s);
    Receiver receiver; // of an earlier connection
    studio.player.actionBrowse("a"_s, &receiver, "browseAnything");
    studio.connect();
    studio.say(R"({"id":"1","result":1})"_s);
    QCOMPARE(receiver.calls, QStringList());
    QCOMPARE(studio.player.actionBrowse("a"_s, &receiver, "browseAnything"), 0);
}

void TestPlayer::dropComesToRest()
{
    Studio studio(30);
    studio.connect();
    for (int drop = 1; drop <= 3; ++drop) {
        studio.server.paths.clear();
        studio.server.dropAll();
        QVERIFY(Waiting::comes([&] { return studio.server.liveSockets() == 1; }));
        // Long after the second retry there is still one socket, and there were no further attempts.
        QVERIFY(!Waiting::comes([&] { return studio.server.paths.size() > 2; }, 5 * 2 * 30));
        QCOMPARE(studio.server.liveSockets(), 1);
        studio.server.texts.clear();
        studio.settle();
        studio.player.actionNext();
        QVERIFY(Waiting::comes([&] { return !studio.server.texts.isEmpty(); }));
        QCOMPARE(studio.server.texts, QStringList{request(0, "core.playback.next"_s)});
    }
}

// The listener holds each attempt until the test lets it fail: one failure, one further attempt.
void TestPlayer::serverThatIsDown()
{
    constexpr int retry = 15;
    Studio studio(retry);
    QTcpServer down;
    QVERIFY(down.listen(QHostAddress::LocalHost));
    int attempts = 0;
    QPointer<QTcpSocket> held;
    connect(&down, &QTcpServer::newConnection, this, [&] {
        ++attempts;
        held = down.nextPendingConnection();
    });
    studio.player.setIpAddress("no host"_s);
    studio.player.startConnection();
    studio.player.setIpAddress("127.0.0.1"_s);
    studio.player.setPort(QString::number(down.serverPort()));
    for (int failure = 0; failure < 4; ++failure) {
        QVERIFY(Waiting::comes([&] { return attempts == failure + 1 && held; }));
        QVERIFY(!Waiting::comes([&] { return attempts > failure + 1; }, 6 * retry));
        if (failure % 2)
            held->write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
        held->disconnectFromHost();
    }
    studio.player.setPort(studio.server.port()); // it comes back
    QVERIFY(Waiting::comes([&] { return studio.server.liveSockets() == 1; }));
    studio.player.stopConnection();
}

// A live connection is lost and nobody takes the next ones: the short retry, the long one, and the long ones after it.
void TestPlayer::serverThatGoesDown()
{
    constexpr int retry = 40;
    Studio studio(retry);
    studio.connect();
    QTcpServer down;
    QList<int> times;
    QElapsedTimer clock;
    connect(&down, &QTcpServer::newConnection, this, [&] {
        times << int(clock.elapsed());
        down.nextPendingConnection()->abort();
    });
    studio.server.stopListening();
    QVERIFY(down.listen(QHostAddress::LocalHost, quint16(studio.player.port().toInt())));
    clock.start();
    studio.server.dropAll();
    QTRY_VERIFY(times.size() >= 6);
    // No three successive attempts are nearer than two of the short retry, nor any two after the first pair. A slow
    // machine makes them later, never earlier.
    for (int i = 2; i + 1 < times.size(); ++i)
        QVERIFY2(times.at(i + 1) - times.at(i) >= 2 * retry - 5,
                 qPrintable("%1 after %2"_s.arg(times.at(i + 1)).arg(times.at(i))));
}

// Numbers begin at 0 and the poll waits for a connection, however long the dial takes.
void TestPlayer::diallingStopsTheTicks()
{
    Studio studio;
    PlayerTiming::current() = {1, never, never};
    studio.connect();
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    studio.player.setPlayPause(HalvoraPlayer::Playing); // every tick would ask for the time
    studio.player.setPort(QString::number(silent.serverPort()));
    studio.player.startConnection();
    int asked = 0;
    QVERIFY(!Waiting::comes([&] { return studio.player.actionPlayIndex(nullptr, "") != asked++; }, 50));
}

void TestPlayer::startsAndStopsInQuickSuccession()
{
    Studio studio(25);
    for (int i = 0; i < 20; ++i) {
        studio.player.startConnection();
        if (i % 3 == 0)
            QVERIFY(Waiting::comes([&] { return studio.server.liveSockets() > 0; }));
        if (i % 2 == 0)
            studio.player.stopConnection();
    }
    QVERIFY(Waiting::comes([&] {
        studio.player.actionNext(); // lost until the last connection stands
        return !studio.server.texts.isEmpty() && studio.server.liveSockets() == 1;
    }));
    const int attempts = studio.server.paths.size();
    QVERIFY(!Waiting::comes([&] { return studio.server.paths.size() > attempts; }, 10 * 25));
    studio.player.stopConnection();
    QVERIFY(Waiting::comes([&] { return studio.server.liveSockets() == 0; }));
    QVERIFY(!Waiting::comes([&] { return studio.server.paths.size() > attempts; }, 10 * 25));
}

void TestPlayer::stopEndsRetries()
{
    Studio studio(25);
    studio.connect();
    studio.player.socketDisconnected();
    studio.player.socketError(QAbstractSocket::RemoteHostClosedError);
    studio.player.stopConnection();
    studio.server.paths.clear();
    QVERIFY(!Waiting::comes([&] { return !studio.server.paths.isEmpty(); }, 10 * 25));
    // Signals of the ended connection that come late do nothing either.
    studio.player.socketDisconnected();
    QVERIFY(!Waiting::comes([&] { return !studio.server.paths.isEmpty(); }, 10 * 25));
    studio.player.refreshTimerTimeout();
    QCOMPARE(studio.server.texts, QStringList());
}

void TestPlayer::stoppedPlayerSendsNothing()
{
    Studio studio;
    Receiver receiver;
    QCOMPARE(studio.player.actionBrowse("a"_s, &receiver, "browseAnything"), 0);
    QCOMPARE(studio.player.actionLookup({}, &receiver, "browseAnything"), 1);
    studio.player.actionNext();
    studio.player.updateQueue(json(R"([{"tlid":1,"track":{}}])"_s));
    studio.player.actionRemoveTrackFromQueue(0);
    studio.player.stopConnection();
    studio.connect();
    QCOMPARE(studio.sent(), QStringList());
}

HALVORA_SUITE_MAIN(TestPlayer)
#include "tst_player.moc"
