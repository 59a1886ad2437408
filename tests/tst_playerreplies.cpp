// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "screens/DynamicTranslator.h"
#include "support/Listed.h"
#include "support/SignalLog.h"
#include "support/Studio.h"
#include "support/Suite.h"

namespace {

struct Stage;
using Scene = std::function<QStringList(Stage &)>; // returns what was seen of it

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

    // Gives each request since the last call that reply; returns their methods.
    QStringList answerAll(const QString &outcome)
    {
        QStringList methods;
        for (const QString &text : sent()) {
            const QJsonObject request = json(text).toObject();
            reply(request.value("id"_s).toString().toInt(), outcome);
            methods << request.value("method"_s).toString().section(QLatin1Char('.'), 2);
        }
        return methods;
    }

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

} // namespace

Q_DECLARE_METATYPE(Scene)

class TestPlayerReplies final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { DynamicTranslator::loadTranslations(); }

    // What works

    void scenes_data();
    void scenes();

    // What goes wrong

    void repliesOfAnotherType_data();
    void repliesOfAnotherType();
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
    row("a reconnection keeps the playlist in the making",
        [](Stage &s) {
            s.player.actionCreatePlaylist("x"_s, true);
            s.result(0, R"({"uri":"m3u:x"})"_s);
            const QStringList before = s.asked();
            s.connect();
            for (int time = 0; time < 2; ++time) // once alone
                s.player.updatePlaylistTracks(json("[5]"_s));
            return before + s.asked();
        },
        {create, "get_tracks"_s, R"(save {"playlist":{"tracks":[5],"uri":"m3u:x"}})"_s});
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
    row("pictures of the song replace what is there",
        [](Stage &s) {
            fill(s);
            s.player.updateTrackImages(json(R"({"any:other":[{"uri":"r","width":5}]})"_s));
            return s.heard() << s.state().section(QLatin1Char(':'), -1);
        },
        {"p.currentSongImageChanged"_s, "5r;2q"_s});
    row("lists with anything in them",
        [](Stage &s) {
            fill(s);
            s.asked();
            const QJsonValue mixed = json(R"([1,null,"x",[],{"uri":3},{"tlid":"a","track":[],"uri":"m"}])"_s);
            s.player.updateUriSchemes(mixed);
            s.player.updateQueue(mixed);
            s.player.updatePlaylists(mixed);
            s.player.actionPlayNow(mixed);
            s.player.actionPlayList(mixed);
            s.player.actionAddList(mixed);
            return s.asked() << s.state();
        },
        {R"(get_images {"uris":[""]})"_s, "play {}"_s, "stop"_s, "clear"_s, R"(add {"uris":["","m"]})"_s,
         R"(add {"uris":["","m"]})"_s,
         "2 1 1 song:local:a time:4 queue:0 lists:m filters:all,,,x,,, pictures:1p;"_s});
    row("objects with anything in them",
        [](Stage &s) {
            const QJsonValue odd = json(R"({"b":[1,{}],"local:a":5,"tracks":7,"uri":[]})"_s);
            s.player.updateTrackInfo(odd);
            s.player.updateTrackImages(odd);
            s.player.actionEditPlaylistWithUris("m3u:x"_s, {});
            s.player.updatePlaylistJson(odd);
            return s.heard() + s.asked() << s.state().section(QLatin1Char(':'), -1);
        },
        {"p.currentSongChanged"_s, "p.currentSongImageChanged"_s, R"(get_images {"uris":[""]})"_s,
         R"(lookup {"uri":"m3u:x"})"_s,
         R"(save {"playlist":{"b":[1,{}],"local:a":5,"tracks":[],"uri":[]}})"_s, "0;"_s});
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

void TestPlayerReplies::repliesOfAnotherType_data()
{
    QTest::addColumn<QString>("outcome");
    for (const char *outcome : {R"("result":null)", R"("result":1e300)", R"("result":"x")",
                                R"("jsonrpc":"2.0")", R"("error":{"code":-32603})"})
        QTest::newRow(outcome) << QString::fromLatin1(outcome);
}

// Each request is a real one, and so is the reply to it.
void TestPlayerReplies::repliesOfAnotherType()
{
    QFETCH(const QString, outcome);
    Stage stage;
    fill(stage);
    QCOMPARE(stage.answerAll(outcome), (QStringList{"get_images"_s, "get_images"_s}));
    QCOMPARE(stage.state(), fullState);
    stage.player.refreshTimerTimeout();
    QCOMPARE(stage.answerAll(outcome).size(), 8);
    QCOMPARE(stage.heard(),
             (QStringList{"s.currTimeChanged"_s, "p.playPauseChanged"_s, "p.shuffleChanged"_s,
                          "p.repeatChanged"_s, "p.queueChanged"_s, "p.playlistsChanged"_s}));
    const QString afterPoll = "0 0 0 song:local:a time:0 queue: lists: filters:all,local pictures:1p;"_s;
    QCOMPARE(stage.state(), afterPoll);
    stage.player.actionEditPlaylistWithUris("m3u:x"_s, {});
    stage.player.actionPlayAdd({"a"_s}, -1, true);
    stage.player.actionOpenPlaylistWithUri("m3u:x"_s);
    stage.player.actionAddPlaylistWithUri("m3u:x"_s);
    stage.player.actionCreatePlaylist("x"_s, true);
    QCOMPARE(stage.answerAll(outcome),
             (QStringList{"lookup"_s, "add"_s, "get_items"_s, "get_items"_s, "create"_s}));
    QCOMPARE(stage.answerAll(outcome), QStringList{"get_tracks"_s});
    QCOMPARE(stage.asked() + stage.heard(), QStringList());
    QCOMPARE(stage.state(), afterPoll);
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
