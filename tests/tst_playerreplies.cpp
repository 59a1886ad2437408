// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "screens/DynamicTranslator.h"
#include "support/Listed.h"
#include "support/SignalLog.h"
#include "support/Studio.h"
#include "support/Suite.h"

namespace {

// What a player does when it is told something, and what a test saw of it.
using Act = std::function<void(HalvoraPlayer &)>;
struct Stage;
using Scene = std::function<QStringList(Stage &)>;

// The pictures of an item, by width.
QString picturesOf(const PlayerItem *item)
{
    QMap<int, QString> ordered;
    for (auto it = item->images->constBegin(); it != item->images->constEnd(); ++it)
        ordered.insert(it.key(), it.value());
    QStringList texts;
    for (auto it = ordered.constBegin(); it != ordered.constEnd(); ++it)
        texts << QString::number(it.key()) + it.value();
    return texts.join(QLatin1Char(','));
}

// A studio that also listens to the player.
struct Stage : Studio
{
    Stage()
    {
        connect();
        log.watch(&player, "p"_s);
    }

    // Sends a reply, such as `"result":[]`, and waits until the player has read it and all before it.
    void reply(int id, const QString &outcome)
    {
        server.send(R"({"id":"%1",%2})"_s.arg(id).arg(outcome));
        QSignalSpy read(&player, &HalvoraPlayer::currentTlidChanged);
        server.send(R"({"event":"track_playback_"})"_s);
        QVERIFY(read.wait());
    }
    void result(int id, const QString &value) { reply(id, "\"result\":"_s + value); }

    // The requests since the last call: the last word of the method, and the parameters.
    QStringList asked()
    {
        QStringList texts = Studio::asked();
        return texts.replaceInStrings(QRegularExpression("^core\\.\\w+\\."_s), QString());
    }

    // The signals since the last call, without the marks behind what was said and replied.
    QStringList heard()
    {
        QStringList signs = log.take();
        signs.removeAll("p.currentTlidChanged"_s);
        return signs;
    }

    QString state()
    {
        return stateOf(&player) + " pictures:"_s + picturesOf(player.currentSong()) + QLatin1Char(';')
            + (player.queueTlid().isEmpty() ? QString() : picturesOf(listed(player.queue()).first()));
    }

    SignalLog log;
};

const QString fullState = "2 1 1 song:local:a time:4 queue:3 lists:m3u:x filters:all,local pictures:1p;2q"_s;

// Brings a player into fullState.
void fill(Stage &stage)
{
    HalvoraPlayer &player = stage.player;
    player.updatePlaybackStatus("playing"_s);
    player.updateRandom(true);
    player.updateRepeat(true);
    player.updateTrackInfo(json(track));
    player.updateTrackTime(3500);
    player.updateTrackImages(json(R"({"local:a":[{"uri":"p","width":1}]})"_s));
    player.updateQueue(json(R"([{"tlid":3,"track":{"uri":"c"}}])"_s));
    player.updateQueueImages(json(R"({"c":[{"uri":"q","width":2}]})"_s));
    player.updatePlaylists(json(R"([{"uri":"m3u:x"}])"_s));
    player.updateUriSchemes(json(R"(["local"])"_s));
    stage.log.watch(player.currentSong(), "s"_s);
    stage.heard();
}

struct Effect
{
    QString from, to; // in the state
    QString heard;
    QStringList asked;
};

struct Asker
{
    const char *handler;
    QString method; // the last request that `act` makes of it gets the reply
    Act act;
    Effect usual;
    QHash<QString, Effect> others; // by the reply
};

const QString none = R"("result":[])"_s;
const QString empty = R"("result":{})"_s;
const QString mixed = R"("result":[1,null,"x",[],{"uri":3},{"tlid":"a","track":[],"uri":"m"}])"_s;
const QString odd = R"("result":{"b":[1,{}],"local:a":5,"tracks":7,"uri":[]})"_s;
const QString yes = R"("result":true)"_s;
const QString number = R"("result":3)"_s;
const QStringList outcomes{R"("result":null)"_s,
                           yes,
                           number,
                           R"("result":1e300)"_s,
                           R"("result":"x")"_s,
                           none,
                           empty,
                           mixed,
                           odd,
                           R"("jsonrpc":"2.0")"_s,
                           R"("error":{"code":-32603})"_s};

// What is only asked, or only heard.
Effect asks(const QStringList &requests)
{
    return {{}, {}, {}, requests};
}
Effect changes(const QString &from, const QString &to, const QString &heard, const QStringList &asked = {})
{
    return {from, to, heard, asked};
}

QList<Asker> askers()
{
    using Player = HalvoraPlayer;
    const Act poll = [](Player &p) { p.refreshTimerTimeout(); };
    const QString mixedList = mixed.section(QLatin1Char(':'), 1);
    const QString rest = " lists:m3u:x filters:all,local pictures:1p"_s;
    const QStringList picturesOfNobody{R"(get_images {"uris":[""]})"_s};
    const auto add = [](const char *uris) { return "add {\"uris\":%1}"_s.arg(QLatin1String(uris)); };
    const auto save = [](const QString &tracks) {
        return asks({R"(save {"playlist":{"tracks":%1,"uri":"m3u:x"}})"_s.arg(tracks)});
    };
    QList<Asker> all;
    const auto ask = [&](const char *handler, const QString &method, const Act &act, const Effect &usual = {},
                         const QHash<QString, Effect> &others = {}) {
        all << Asker{handler, method, act, usual, others};
    };
    ask("updateUriSchemes", "core.get_uri_schemes"_s, poll, {},
        {{none, changes(",local"_s, {}, "p.filtersChanged"_s)},
         {mixed, changes(",local"_s, ",,,x,,,"_s, "p.filtersChanged"_s)}});
    ask("updatePlaybackStatus", "core.playback.get_state"_s, poll,
        changes("2 1 1"_s, "0 1 1"_s, "p.playPauseChanged"_s));
    ask("updateTrackInfo", "core.playback.get_current_track"_s, poll, {},
        {{odd,
          changes("song:local:a time:4 queue:3"_s + rest, QString("song: time:0 queue:3"_s + rest).chopped(2),
                  "p.currentSongChanged"_s, picturesOfNobody)}});
    ask("updateTrackImages", "core.library.get_images"_s,
        [](Player &p) {
            p.currentSong()->images->clear();
            p.updateTrackInfo(json(track));
            p.currentSong()->images->insert(1, "p"_s);
        },
        {}, {{odd, changes(":1p"_s, ":0"_s, "p.currentSongImageChanged"_s)}});
    ask("updateTrackTime", "core.playback.get_time_position"_s, poll,
        changes("time:4"_s, "time:0"_s, "s.currTimeChanged"_s),
        {{number, changes("time:4"_s, "time:1"_s, "s.currTimeChanged"_s)}});
    ask("updateRandom", "core.tracklist.get_random"_s, poll,
        changes("2 1 1"_s, "2 0 1"_s, "p.shuffleChanged"_s), {{yes, changes({}, {}, "p.shuffleChanged"_s)}});
    ask("updateRepeat", "core.tracklist.get_repeat"_s, poll,
        changes("2 1 1"_s, "2 1 0"_s, "p.repeatChanged"_s), {{yes, changes({}, {}, "p.repeatChanged"_s)}});
    ask("updateQueue", "core.tracklist.get_tl_tracks"_s, poll,
        changes("queue:3"_s + rest + ";2q"_s, "queue:"_s + rest + ";"_s, "p.queueChanged"_s),
        {{mixed,
          changes("queue:3"_s + rest + ";2q"_s, "queue:0"_s + rest + ";"_s, "p.queueChanged"_s,
                  picturesOfNobody)}});
    ask("updateQueueImages", "core.library.get_images"_s, [](Player &p) {
        p.updateQueue(json(R"([{"tlid":3,"track":{"uri":"c"}}])"_s));
        listed(p.queue()).first()->images->insert(2, "q"_s);
    });
    ask("updatePlaylists", "core.playlists.as_list"_s, poll,
        changes("lists:m3u:x"_s, "lists:"_s, "p.playlistsChanged"_s),
        {{mixed, changes("lists:m3u:x"_s, "lists:m"_s, "p.playlistsChanged"_s)}});
    ask("updatePlaylistJson", "core.playlists.lookup"_s,
        [](Player &p) { p.actionEditPlaylistWithUris("m3u:x"_s, {}); }, {},
        {{empty, asks({R"(save {"playlist":{"tracks":[]}})"_s})},
         {odd, asks({R"(save {"playlist":{"b":[1,{}],"local:a":5,"tracks":[],"uri":[]}})"_s})}});
    ask(
        "updatePlaylistJsonFromQueue", "core.playlists.create"_s,
        [](Player &p) { p.actionCreatePlaylist("x"_s, true); }, asks({"get_tracks"_s}));
    ask("updatePlaylistTracks", "core.tracklist.get_tracks"_s,
        [](Player &p) { p.updatePlaylistJsonFromQueue(json(R"({"uri":"m3u:x","tracks":[1]})"_s)); }, {},
        {{none, save("[]"_s)}, {mixed, save(mixedList)}});
    ask("actionPlayNow", "core.tracklist.add"_s, [](Player &p) { p.actionPlayAdd({"a"_s}, -1, true); }, {},
        {{none, asks({"play {}"_s})}, {mixed, asks({"play {}"_s})}});
    ask("actionPlayList", "core.playlists.get_items"_s,
        [](Player &p) { p.actionOpenPlaylistWithUri("m3u:x"_s); }, {},
        {{none, asks({"stop"_s, "clear"_s, add("[]")})},
         {mixed, asks({"stop"_s, "clear"_s, add(R"(["","m"])")})}});
    ask("actionAddList", "core.playlists.get_items"_s,
        [](Player &p) { p.actionAddPlaylistWithUri("m3u:x"_s); }, {},
        {{none, asks({add("[]")})}, {mixed, asks({add(R"(["","m"])")})}});
    return all;
}

} // namespace

Q_DECLARE_METATYPE(Asker)
Q_DECLARE_METATYPE(Effect)
Q_DECLARE_METATYPE(Scene)

class TestPlayerReplies final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { DynamicTranslator::loadTranslations(); }

    // What works

    void scenes_data();
    void scenes();
    void settersEmitEachTime();

    // What goes wrong

    void repliesOfEveryType_data();
    void repliesOfEveryType();
    void nothingIsPlayedYet();
};

void TestPlayerReplies::scenes_data()
{
    QTest::addColumn<Scene>("scene");
    QTest::addColumn<QStringList>("seen");
    const auto row = [](const char *name, const Scene &scene, const QStringList &seen) {
        QTest::newRow(name) << scene << seen;
    };
    const QString create = R"(create {"name":"x","uri_scheme":"m3u"})"_s;
    const QString saved = R"(save {"playlist":{"tracks":[{"__model__":"Album","name":"","uri":"b"}]}})"_s;
    const auto createdFromQueue = [](const QString &outcome) {
        return [outcome](Stage &s) {
            s.player.actionCreatePlaylist("x"_s, true);
            s.reply(0, outcome);
            s.result(1, "[5]"_s);
            return s.asked();
        };
    };
    row("creation is refused", createdFromQueue(R"("error":{"code":1})"_s),
        {create, "get_tracks"_s, R"(save {"playlist":{"tracks":[5]}})"_s});
    row("creation gives nothing", createdFromQueue(R"("result":null)"_s), {create, "get_tracks"_s});
    row("an empty playlist is made",
        [](Stage &s) {
            s.player.actionCreatePlaylist("x"_s, false);
            s.result(0, R"({"uri":"m3u:x"})"_s);
            return s.asked() + s.heard();
        },
        {create});
    row("a reconnection keeps the playlist in the making",
        [](Stage &s) {
            s.player.actionCreatePlaylist("x"_s, true);
            s.result(0, R"({"uri":"m3u:x"})"_s);
            const QStringList before = s.asked();
            s.connect();
            s.player.updatePlaylistTracks(json("[5]"_s));
            return before + s.asked();
        },
        {create, "get_tracks"_s, R"(save {"playlist":{"tracks":[5],"uri":"m3u:x"}})"_s});
    row("a playlist is added, not played",
        [](Stage &s) {
            s.player.actionAddPlaylistWithUri("m3u:x"_s);
            s.result(0, R"([{"uri":"a"}])"_s);
            s.result(1, R"([{"tlid":7}])"_s);
            return s.asked();
        },
        {R"(get_items {"uri":"m3u:x"})"_s, R"(add {"uris":["a"]})"_s});
    row("tracks are added, not played",
        [](Stage &s) {
            s.player.actionPlayAdd({"a"_s}, 2, false);
            s.result(0, R"([{"tlid":7}])"_s);
            return s.asked();
        },
        {R"(add {"at_position":2,"uris":["a"]})"_s});
    row("ids to play are passed on as they are",
        [](Stage &s) {
            for (const QString &tlid : {"\"t\""_s, "1.5"_s, "null"_s})
                s.player.actionPlayNow(json("[{\"tlid\":%1}]"_s.arg(tlid)));
            return s.asked();
        },
        {R"(play {"tlid":"t"})"_s, R"(play {"tlid":1.5})"_s, R"(play {"tlid":null})"_s});
    row("two edits share the items",
        [](Stage &s) {
            PlayerItem first, second;
            first.setUri("a"_s);
            second.setUri("b"_s);
            s.player.actionEditPlaylistWithUris("m3u:x"_s, {&first});
            s.player.actionEditPlaylistWithUris("m3u:y"_s, {&second});
            s.result(0, "{}"_s);
            s.result(1, "{}"_s);
            return s.asked();
        },
        {R"(lookup {"uri":"m3u:x"})"_s, R"(lookup {"uri":"m3u:y"})"_s, saved, saved});
    row("a playlist is listed twice",
        [](Stage &s) {
            s.player.updatePlaylists(
                json(R"([{"uri":"m","name":"1","type":"playlist"},{"uri":"m","name":"2"}])"_s));
            QStringList seen{s.player.getPlaylistName("m"_s)};
            for (const PlayerItem *item : listed(s.player.playlists()))
                seen << item->name() + item->type();
            return seen;
        },
        {"2"_s, "1"_s, "2"_s});
    row("an entry's track is null",
        [](Stage &s) {
            s.say(R"({"event":"tracklist_changed"})"_s);
            s.result(0, R"([{"tlid":4,"track":null},{"tlid":6}])"_s);
            return s.asked() + s.heard().filter("queue"_s)
                << stateOf(&s.player).section(QLatin1Char(' '), 5, 5);
        },
        {"get_tl_tracks"_s, R"(get_images {"uris":[""]})"_s, "p.queueChanged"_s, "queue:4"_s});
    row("pictures of the queue are added to what is there",
        [](Stage &s) {
            fill(s);
            s.player.updateQueueImages(json(R"({"c":[{"uri":"r","width":5}]})"_s));
            return s.heard() << s.state().section(QLatin1Char(':'), -1);
        },
        {"1p;2q,5r"_s});
    row("pictures of the song replace what is there",
        [](Stage &s) {
            fill(s);
            s.player.updateTrackImages(json(R"({"any:other":[{"uri":"r","width":5}]})"_s));
            return s.heard() << s.state().section(QLatin1Char(':'), -1);
        },
        {"p.currentSongImageChanged"_s, "5r;2q"_s});
    row("the index has the id of its request",
        [](Stage &s) {
            Receiver receiver;
            s.player.actionNext();
            const int id = s.player.actionPlayIndex(&receiver, "browseAnything");
            s.result(1, "5"_s);
            return QStringList{QString::number(id)} + receiver.calls;
        },
        {"1"_s, "browse 1 5"_s});
    row("a capital is no browse handler",
        [](Stage &s) {
            Receiver receiver;
            s.player.actionBrowse("a"_s, &receiver, "BrowseInCapitals");
            s.result(0, "5"_s);
            return receiver.calls;
        },
        {"capital 5"_s});
    row("transports are no services",
        [](Stage &s) {
            s.player.updateUriSchemes(json(R"(["yt","rtsp","rtmps","YT","rtmp","mms","Http","https","http",)"
                                           R"("file",3,"m3u",null])"_s));
            return s.heard() + s.player.filters() + s.player.filterTitles();
        },
        {"p.filtersChanged"_s,
         "all"_s,
         "YT"_s,
         "Http"_s,
         {},
         "m3u"_s,
         {},
         "All services"_s,
         {},
         {},
         {},
         "Local playlists"_s,
         {}});
}

void TestPlayerReplies::scenes()
{
    QFETCH(const Scene, scene);
    QFETCH(const QStringList, seen);
    Stage stage;
    QCOMPARE(scene(stage), seen);
}

void TestPlayerReplies::settersEmitEachTime()
{
    HalvoraPlayer player;
    SignalLog log;
    log.watch(&player, "p"_s);
    for (const char *name : {"index", "sourceRef", "ipAddress", "port", "playPause", "shuffle", "repeat",
                             "currentSong", "currentTlid", "airPlay", "airPlayTrack", "airPlayAlbum",
                             "airPlayArtist", "airPlayImage", "filters", "filterTitles"}) {
        for (int time = 0; time < 2; ++time)
            QVERIFY(player.setProperty(name, player.property(name)));
        const QString signal = "p.%1Changed"_s.arg(QLatin1String(name));
        QCOMPARE(log.take(), (QStringList{signal, signal}));
    }
}

void TestPlayerReplies::repliesOfEveryType_data()
{
    QTest::addColumn<Asker>("asker");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<Effect>("effect");
    for (const Asker &asker : askers()) {
        for (const QString &outcome : outcomes)
            QTest::addRow("%s %s", asker.handler, qPrintable(outcome))
                << asker << outcome << asker.others.value(outcome, asker.usual);
    }
}

// Each request is a real one, and so is the reply to it.
void TestPlayerReplies::repliesOfEveryType()
{
    QFETCH(const Asker, asker);
    QFETCH(const QString, outcome);
    QFETCH(const Effect, effect);
    Stage stage;
    fill(stage);
    asker.act(stage.player);
    int id = -1;
    for (const QString &text : stage.sent()) {
        const QJsonObject request = json(text).toObject();
        if (request.value("method"_s) == asker.method)
            id = request.value("id"_s).toString().toInt();
    }
    QVERIFY(id >= 0);
    stage.heard();
    QCOMPARE(stage.state(), fullState);
    stage.reply(id, outcome);
    QCOMPARE(stage.heard().join(QLatin1Char(' ')), effect.heard);
    QCOMPARE(stage.asked(), effect.asked);
    QString expected = fullState;
    if (!effect.from.isEmpty())
        expected.replace(effect.from, effect.to);
    QCOMPARE(stage.state(), expected);
}

void TestPlayerReplies::nothingIsPlayedYet()
{
    Stage stage;
    stage.player.updateTrackTime(5000);
    stage.player.updateTrackImages(json(R"({"a":[{"uri":"p"}]})"_s));
    stage.heard();
    stage.say(R"({"event":"stream_title_changed","title":"T"})"_s);
    QCOMPARE(stage.heard(), QStringList{"p.playPauseChanged"_s}); // the mark behind it
    QVERIFY(!stage.player.currentSong());
    QCOMPARE(stage.asked(), QStringList());
}

HALVORA_SUITE_MAIN(TestPlayerReplies)
#include "tst_playerreplies.moc"
