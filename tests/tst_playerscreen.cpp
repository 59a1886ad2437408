// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ClientWindow.h"
#include "support/SceneItems.h"
#include "support/Suite.h"

#include "player/HalvoraPlayer.h"
#include "player/PlayerTiming.h"

#include <QRegularExpression>

#include <algorithm>

/**
 * The player screen as a person uses it: the mouse on a real window, and what then reaches the device and the music
 * server. The equaliser's bands have a suite of their own.
 */
class PlayerScreenTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PlayerTiming::current() = {50, 25, 50}; }

    // What works
    void controlsSendTheirRequest();
    void queueSendsItsRequests();
    void queueIsSavedAsPlaylist();
    void looks();
    void looksWithoutAnOutput();
    void popUpOpensAndCloses_data();
    void popUpOpensAndCloses();
    void matrixSelectsTheOutput();
    void queueFollowsThePlayer();
    void longQueueOpensAtItsSong();
    void routesMoveUnderAnOpenQueue();
    void routesMoveBehindAnotherTab();
    void newPlayersAreShownAtOnce_data();
    void newPlayersAreShownAtOnce();

    // What goes wrong
    void playerWithoutASongKeepsWhatWasShown();
    void rowRemovedWhileItIsAside();
    void deviceDoesNotMoveAHeldSlider();
    void tabGoesAwayUnderAHeldSlider();
    void knobStaysWhereItWasPutByAClick();
};

namespace {

using SceneItems::centreOf;

// In a window of 450 by 640.
const QPoint bar(225, 40);
const QPoint queueButton(40, 603);
const QPoint playlistsButton(105, 603);
const QPoint equaliserButton(345, 603);
const QPoint muteButton(410, 603);
const QPoint volumeMiddle(225, 558);
const QPoint closeOfQueue(30, 15 + 20);
const QPoint clearButton(355, 15 + 25);
const QPoint saveButton(415, 15 + 25);
constexpr int queueTop = 15 + 40;

QPoint transport(int button) // from the left
{
    static const int places[] = {40, 65 + 64, 225, 450 - 65 - 64, 410};
    return {places[button], 495};
}

QPoint queueRow(int row, int x = 200)
{
    return {x, queueTop + 75 * row + 37};
}

QPoint matrixCell(int row, int column)
{
    return {115 + 160 * column + 80, 75 + 150 + 50 * row + 25};
}

bool comesTo(const QQuickItem *panel, qreal y)
{
    return Waiting::comes([&] { return panel->y() == y; });
}

bool openQueue(ClientWindow *client)
{
    client->click(queueButton);
    return comesTo(client->item("QueueView"_s), 15);
}

void swipe(ClientWindow *client, const QPoint &from, int by)
{
    client->press(from);
    for (int part = 1; part <= 4; ++part)
        client->moveTo(from + QPoint(by * part / 4, 0));
    client->release(from + QPoint(by, 0));
}

// Everything that was sent, the commands to the device in front.
QString sent(const ClientWindow &client)
{
    return (client.commands() + client.requests()).join(QLatin1Char(' '));
}

void forget(ClientWindow *client)
{
    client->forgetCommands();
    client->forgetRequests();
}

// The name of a picture of the program; "cover" for any other.
QString stem(const QVariant &picture)
{
    const QString text = picture.toString();
    return text.isEmpty() || text.startsWith("qrc"_s) ? QFileInfo(text).completeBaseName() : "cover"_s;
}

// What can be read and pressed: the texts, the cover's picture and the pictures of the buttons.
QStringList look(const ClientWindow &client)
{
    QStringList look = client.texts().mid(2); // the captions
    const QQuickItem *cover = client.item("CoverImgView"_s);
    look << (cover                                ? stem(cover->property("coverSource"))
                 : client.item("SourceImgView"_s) ? "source"_s
                                                  : "nothing"_s);
    QStringList buttons;
    const QList<QQuickItem *> items = SceneItems::shown(client.view.rootObject());
    for (const QQuickItem *item : items) {
        const QString picture = stem(item->property("imgSource"));
        if (item->mapToScene({}).y() < client.view.height() && !picture.isEmpty())
            buttons << picture;
    }
    return look << buttons.join(QLatin1Char(' '));
}

QString artists(const CatalogueTrack &track)
{
    QStringList names;
    for (const CatalogueArtist &artist : track.artists)
        names << artist.name;
    return names.join(", "_s);
}

QString albumLine(const CatalogueTrack &track)
{
    return track.albumName + " - "_s + artists(track);
}

// The connections that a list has to the models that it has had, each of them to hear of another delegate.
int connectionsToModels(const QQuickItem *list)
{
    struct Counted : QObject
    {
        static auto receiversOf() { return &Counted::receivers; }
    };
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    int connections = 0;
    for (const QObject *model : list->children()) {
        if (model->inherits("QQmlDelegateModel"))
            connections += (model->*Counted::receiversOf())(SIGNAL(delegateChanged()));
    }
    return connections;
}

// The title of the queue's row that is marked, and where the row is.
QString markedRow(const ClientWindow &client)
{
    for (int row = 0; const QQuickItem *cell = client.item("SongCell"_s, row); ++row) {
        if (cell->property("selected").toBool())
            return "%1 at %2"_s.arg(cell->property("textLabel").toString()).arg(cell->mapToScene({}).y());
    }
    return {};
}

QString atTop(const CatalogueTrack &track)
{
    return "%1 at %2"_s.arg(track.name).arg(queueTop);
}

QStringList rows(const ClientWindow &client)
{
    QStringList rows;
    for (int row = 0; const QQuickItem *cell = client.item("SongCell"_s, row); ++row)
        rows << cell->property("textLabel").toString();
    return rows;
}

QVector<CatalogueTrack> tracks(const ClientWindow &client, int from, int to)
{
    QVector<CatalogueTrack> tracks;
    for (int position = from; position < to; ++position)
        tracks << client.server.catalogue().track(position);
    return tracks;
}

} // namespace

void PlayerScreenTest::controlsSendTheirRequest()
{
    PlayerWindow client;
    QCOMPARE(client.playerButtonCalls(), 1);
    const auto sentBy = [&client](const QPoint &place) {
        forget(&client);
        client.click(place);
        Waiting::comes([&] { return !sent(client).isEmpty(); });
        return sent(client);
    };
    const auto button = [&] { return stem(client.item("PlayButton"_s)->property("imgSource")); };
    QCOMPARE(sentBy(transport(0)), R"(tracklist.set_repeat{"value":true})"_s);
    QCOMPARE(sentBy(transport(4)), R"(tracklist.set_random{"value":true})"_s);
    QCOMPARE(sentBy(transport(2)), "playback.pause{}"_s);
    QTRY_COMPARE(button(), "play"_s);
    QCOMPARE(sentBy(transport(2)), "playback.resume{}"_s);
    QTRY_COMPARE(button(), "pause"_s);
    QCOMPARE(sentBy(transport(1)), "playback.previous{}"_s);
    QCOMPARE(sentBy(transport(3)), "playback.next{}"_s);
    QCOMPARE(sentBy(muteButton), "UI_COMMAND|2001|100|3|1"_s);
    QCOMPARE(sentBy(volumeMiddle), "UI_COMMAND|2000|100|3|50"_s);
}

void PlayerScreenTest::queueSendsItsRequests()
{
    PlayerWindow client;
    QVERIFY(openQueue(&client));
    const auto swipeAside = [&client](int row) {
        swipe(&client, queueRow(row), -100);
        const QQuickItem *red = SceneItems::label(client.item("SongCell"_s, row), "Delete"_s);
        return Waiting::comes([&] { return red->mapToScene({}).x() < 390; });
    };
    QVERIFY(swipeAside(0));
    forget(&client);
    client.click(queueRow(1)); // with another aside
    QTRY_COMPARE(sent(client), R"(playback.play{"tlid":2})"_s);
    QVERIFY(swipeAside(1));
    forget(&client);
    client.click(queueRow(1, 400));
    QTRY_COMPARE(sent(client), R"(tracklist.remove{"tlid":[2]} tracklist.remove{"criteria":{"tlid":[2]}})"_s);
    QTRY_COMPARE(rows(client).size(), 1);
    forget(&client);
    client.click(clearButton);
    QTRY_VERIFY(client.requests().contains("tracklist.clear{}"_s));
}

void PlayerScreenTest::queueIsSavedAsPlaylist()
{
    PlayerWindow client;
    QVERIFY(openQueue(&client));
    client.click(saveButton);
    QTRY_VERIFY(client.item("PlaylistSaveDialog"_s));
    QVERIFY(client.showsText("Save current queue to a new playlist with name"_s));
    QCOMPARE(client.item("PlaylistSaveDialog"_s)->size().toSize(), client.view.size());
    forget(&client);
    client.click({225, 320 + 30});
    client.type("Tonight"_s);
    client.click({225 - 75, 320 + 75});
    QTRY_VERIFY(!client.item("PlaylistSaveDialog"_s));
    QTRY_VERIFY(client.requests().contains(R"(playlists.create{"name":"Tonight","uri_scheme":"m3u"})"_s));
    const QStringList queued{client.server.catalogue().track(0).uri, client.server.catalogue().track(20).uri};
    QTRY_COMPARE(client.server.playlists()->playlists().constLast().trackUris, queued);
}

namespace {

const QString always = "equilizer sound"_s;
const QString playing = "library library_search pause repeat prev next shuffle queue playlists "_s + always;

} // namespace

// Whatever comes, the volume slider stays where it was.
void PlayerScreenTest::looks()
{
    PlayerWindow client;
    const auto comesTo = [&client](const QStringList &texts, const QString &pictures,
                                   const QString &buttons) {
        const QStringList wanted = QStringList{"Terrace"_s} + texts + QStringList{pictures, buttons};
        Waiting::comes([&] { return look(client) == wanted; });
        QCOMPARE(look(client), wanted);
        const QQuickItem *volume = client.item("HorizontalSlider"_s);
        QCOMPARE(volume->mapToScene({}), QPointF(20, 543));
        QCOMPARE(volume->property("value").toInt(), 40);
    };
    const CatalogueTrack first = client.server.catalogue().track(0);
    const QStringList usual{"Music"_s, first.name, albumLine(first)};
    comesTo(usual, "cover"_s, playing); // a cover that comes late would hide what came after it

    const auto airPlay = [&](const QString &track, const QString &album, const QString &artist,
                             const QStringList &texts, const QString &picture = {}) {
        client.device.setAirPlay(2, {true, track, album, artist, picture});
        comesTo(QStringList{"Music"_s} + texts, picture.isEmpty() ? "airplay_sel_0"_s : "cover"_s, always);
    };
    const auto progress = [&] { return client.item("CoverImgView"_s)->property("progress").toReal(); };
    QTRY_VERIFY(progress() > 0);
    airPlay({}, {}, {}, {});
    airPlay("Tide"_s, "Shore"_s, "Ann"_s, {"Tide"_s, "Shore - Ann"_s});
    airPlay("Tide"_s, {}, "Ann"_s, {"Tide"_s, "Ann"_s});
    airPlay("Tide"_s, "Shore"_s, {}, {"Tide"_s, "Shore"_s});
    airPlay("Tide"_s, {}, {}, {"Tide"_s}, "http://127.0.0.1:%1/covers/7-300.png"_s.arg(client.server.port()));
    QVERIFY2(progress() > 0, "the ring stays as it was");
    client.device.setAirPlay(2, {});
    comesTo(usual, "cover"_s, playing);

    client.device.setRoute(3, 9);
    comesTo({"Radio"_s}, "source"_s, always);
    client.device.setRoute(3, -1);
    comesTo({}, "nothing"_s, always);
    client.device.setRoute(3, 2);
    comesTo(usual, "cover"_s, playing);

    const auto song = [&](const CatalogueTrack &track, const QString &line, const QString &picture) {
        client.server.playback()->play(client.server.tracklist()->add({track}).first().tlid);
        comesTo({"Music"_s, track.name, line}, picture, playing);
    };
    CatalogueTrack noArtist = client.server.catalogue().track(40);
    noArtist.artists.clear();
    song(noArtist, noArtist.albumName, "cover"_s);
    CatalogueTrack noAlbum = client.server.catalogue().track(60);
    noAlbum.albumName.clear();
    song(noAlbum, artists(noAlbum), "cover"_s);
    CatalogueTrack noPicture = client.server.catalogue().track(80);
    noPicture.uri = "local:x"_s;
    song(noPicture, albumLine(noPicture), "defaultcoverart_0"_s);

    client.server.playback()->play(1);
    client.server.tracklist()->setRepeat(true);
    client.server.tracklist()->setRandom(true);
    client.server.playback()->pause();
    client.device.setMute(3, true);
    comesTo(
        usual, "cover"_s,
        "library library_search play repeat_sel_0 prev next shuffle_sel_0 queue playlists equilizer mute_0"_s);
}

void PlayerScreenTest::looksWithoutAnOutput()
{
    OutputsWindow client;
    client.selectTab(1);
    QCOMPARE(look(client), (QStringList{"nothing"_s, "playlists equilizer"_s}));
    QCOMPARE(client.playerButtonCalls(), 0);
    client.forgetCommands();
    client.click(volumeMiddle);
    client.click(muteButton);
    client.click(bar);
    QVERIFY(comesTo(client.item("MatrixPopup"_s), 75));
    QCOMPARE(client.item("MatrixPopup"_s)->property("selectedOutput").toInt(), -1);
    client.click(matrixCell(0, 1)); // behind the other two: no command but this one has been sent
    QTRY_COMPARE(client.commands(), QStringList{"UI_COMMAND|2003|100|3@9"_s});
}

void PlayerScreenTest::popUpOpensAndCloses_data()
{
    QTest::addColumn<QPoint>("button");
    QTest::addColumn<int>("open");
    QTest::addColumn<QPoint>("close"); // its own button, while it is open
    QTest::addColumn<int>("below");    // how far below the screen that button puts it
    QTest::addColumn<QByteArray>("toggle");
    QTest::newRow("MatrixPopup") << bar << 75 << QPoint(30, 75 + 20) << 0 << QByteArray();
    QTest::newRow("QueueView") << queueButton << 15 << closeOfQueue << 5 << QByteArray("toggleQueue");
    QTest::newRow("PlaylistsNavPopup")
        << playlistsButton << 0 << QPoint(415, 22) << 5 << QByteArray("togglePlaylists");
    QTest::newRow("Equalizer") << equaliserButton << 302 << QPoint(30, 302 + 20) << 0
                               << QByteArray("toggleEqualizer");
}

void PlayerScreenTest::popUpOpensAndCloses()
{
    QFETCH(QPoint, button);
    QFETCH(int, open);
    QFETCH(QPoint, close);
    QFETCH(int, below);
    QFETCH(QByteArray, toggle);
    PlayerWindow client;
    QQuickItem *panel = client.item(QString::fromLatin1(QTest::currentDataTag()));
    const auto opens = [&] {
        client.click(button);
        return comesTo(panel, open);
    };
    QCOMPARE(panel->y(), 640.0);
    QVERIFY(opens());
    // The lower buttons lie under what they open: only while that slides can they be reached, so they are called here.
    if (toggle == "togglePlaylists")
        QTest::ignoreMessage(QtDebugMsg, "Closing Playlist popup...");
    if (toggle.isEmpty())
        client.click(button);
    else
        QMetaObject::invokeMethod(client.item("PlayerView"_s), toggle.constData());
    QVERIFY(comesTo(panel, 640));
    QVERIFY(opens());
    client.click(close);
    QVERIFY(comesTo(panel, 640 + below));

    qreal highest = panel->y();
    connect(panel, &QQuickItem::yChanged, &client.view, [&] { highest = qMin(highest, panel->y()); });
    client.view.resize(450, 700);
    QVERIFY(comesTo(panel, 700));
    client.view.resize(450, 640);
    QVERIFY(comesTo(panel, 640));
    QVERIFY2(highest >= 640, "a new size does not send it across the screen");

    QVERIFY(opens());
    client.view.resize(450, 660);
    QTRY_COMPARE(client.item("PlayerView"_s)->height(), 660.0);
    QCOMPARE(panel->y(), qreal(open));
    client.selectTab(0);
    client.selectTab(1);
    QVERIFY(comesTo(panel, 660));
}

void PlayerScreenTest::matrixSelectsTheOutput()
{
    PlayerWindow client;
    client.click(bar);
    QQuickItem *matrix = client.item("MatrixPopup"_s);
    QVERIFY(comesTo(matrix, 75));
    QCOMPARE(matrix->property("selectedOutput").toInt(), 0);
    client.forgetCommands();
    client.click(matrixCell(2, 1));
    QTRY_COMPARE(client.commands(), QStringList{"UI_COMMAND|2003|100|12@9"_s});
    client.click({60, 75 + 150 + 50 + 25}); // the title of output 7
    QTRY_COMPARE(look(client).mid(0, 2), (QStringList{"Kitchen"_s, "Radio"_s}));
    QVERIFY(comesTo(matrix, 640));
    client.click(bar);
    QCOMPARE(matrix->property("selectedOutput").toInt(), 1);
    client.forgetCommands();
    QVERIFY(comesTo(matrix, 75));
    client.click({30, 75 + 20});
    QVERIFY(comesTo(matrix, 640));
    client.click(muteButton);
    QTRY_COMPARE(client.commands(), QStringList{"UI_COMMAND|2001|100|7|0"_s});
}

void PlayerScreenTest::queueFollowsThePlayer()
{
    PlayerWindow client;
    Tracklist *queue = client.server.tracklist();
    const QVector<TracklistEntry> added = queue->add(tracks(client, 100, 130));
    client.server.playback()->play(added.at(4).tlid);
    QTRY_VERIFY(client.showsText(added.at(4).track.name));
    QVERIFY(openQueue(&client));
    QTRY_COMPARE(markedRow(client), atTop(added.at(4).track));
    QVERIFY(client.showsText(added.at(4).track.albumName + "\n"_s + artists(added.at(4).track)));
    client.server.playback()->next();
    QTRY_COMPARE(markedRow(client), atTop(added.at(5).track));
    queue->add(tracks(client, 140, 150), 0); // a new queue: the same song, further down
    QTRY_COMPARE(markedRow(client), atTop(added.at(5).track));
    queue->remove({added.at(2).tlid});
    QTRY_COMPARE(markedRow(client), atTop(added.at(5).track));
    queue->clear();
    QTRY_COMPARE(rows(client), QStringList());
    queue->add(tracks(client, 0, 2));
    QTRY_COMPARE(rows(client).size(), 2);
    client.selectTab(0);
    client.selectTab(1); // the matrix is loaded anew
    QVERIFY(client.item("ReloadedList"_s));
    for (int i = 0; const QQuickItem *list = client.item("ReloadedList"_s, i); ++i)
        QCOMPARE(connectionsToModels(list), 1); // however often it was loaded
}

void PlayerScreenTest::longQueueOpensAtItsSong()
{
    PlayerWindow client(Catalogue(1, 1000));
    const QVector<TracklistEntry> added = client.server.tracklist()->add(tracks(client, 0, 1000));
    client.server.playback()->play(added.at(899).tlid);
    QVERIFY(openQueue(&client));
    QTRY_COMPARE(markedRow(client), atTop(added.at(899).track));
    QVERIFY2(rows(client).size() < 100, "rows out of sight are not made");
    client.forgetRequests();
    client.click(queueRow(1));
    QTRY_COMPARE(client.requests(), QStringList{"playback.play{\"tlid\":%1}"_s.arg(added.at(900).tlid)});
    QTRY_COMPARE(markedRow(client), atTop(added.at(900).track));
}

// It stays with the player for which it was opened. What that one says is of no use to the screen behind it.
void PlayerScreenTest::routesMoveUnderAnOpenQueue()
{
    PlayerWindow client;
    QVERIFY(openQueue(&client));
    QTRY_COMPARE(rows(client).size(), 2);
    client.device.setRoute(3, 9);
    QTRY_VERIFY(client.item("SourceImgView"_s));
    QCOMPARE(rows(client).size(), 2);
    client.forgetRequests();
    client.click(queueRow(1));
    QTRY_COMPARE(client.requests(), QStringList{R"(playback.play{"tlid":2})"_s});
    QTRY_VERIFY(client.item("SongCell"_s, 1)->property("selected").toBool());
    client.click(closeOfQueue);
    QVERIFY(comesTo(client.item("QueueView"_s), 645));
    QCOMPARE(look(client), (QStringList{"Terrace"_s, "Radio"_s, "source"_s, always}));
    client.device.setRoute(3, 2);
    QTRY_VERIFY(client.showsText(client.server.playback()->current().track.name));
    QVERIFY(openQueue(&client));
    QTRY_COMPARE(rows(client).size(), 2);
}

void PlayerScreenTest::routesMoveBehindAnotherTab()
{
    PlayerWindow client;
    client.selectTab(0);
    client.click({50, 65 + 90 + 45});
    QTRY_COMPARE(look(client), (QStringList{"Kitchen"_s, "Radio"_s, "source"_s, "equilizer mute_0"_s}));
    client.selectTab(0);
    client.device.setRoute(7, 2);
    const CatalogueTrack track = client.server.playback()->current().track;
    QTRY_COMPARE(client.texts().filter(track.name).size(), 3);
    client.device.setAirPlay(2, {true, "Tide"_s, "Shore"_s, "Ann"_s, {}});
    QTRY_COMPARE(client.texts().count("Tide - Ann"_s), 3);
    client.device.setAirPlay(2, {});
    QTRY_COMPARE(client.texts().filter(track.name).size(), 3);
    client.selectTab(1);
    const QStringList music{"Kitchen"_s, "Music"_s, track.name, albumLine(track), "cover"_s};
    QTRY_COMPARE(look(client), music + QStringList(QString(playing).replace("sound"_s, "mute_0"_s)));
}

void PlayerScreenTest::newPlayersAreShownAtOnce_data()
{
    QTest::addColumn<bool>("moved");
    QTest::newRow("the link was lost") << false;
    QTest::newRow("another music server") << true;
}

void PlayerScreenTest::newPlayersAreShownAtOnce()
{
    QFETCH(bool, moved);
    PlayerWindow client;
    MusicServerSimulator second{Catalogue(9)};
    QVERIFY(second.listen());
    second.tracklist()->add({second.catalogue().track(30), second.catalogue().track(31)});
    second.playback()->play();
    QVector<SourceState> sources = client.device.state().sources;
    MusicServerSimulator &server = moved ? second : client.server;
    sources[0].port = QString::number(server.port());
    const int earlier = server.acceptedSockets();
    if (moved)
        client.device.setSources(sources);
    else
        client.device.dropAll();
    QTRY_VERIFY(server.acceptedSockets() > earlier);
    QTRY_VERIFY(client.showsText(server.playback()->current().track.name));
    QTRY_VERIFY(!client.item("ConnectionOverlay"_s));
    QTRY_COMPARE(stem(client.item("PlayButton"_s)->property("imgSource")), "pause"_s);
    server.clearRequests();
    client.click(transport(3));
    QTRY_COMPARE(server.requestCount("core.playback.next"_s), 1);
    QTRY_VERIFY(client.showsText(server.playback()->current().track.name));
    client.selectTab(0);
    QTRY_VERIFY(!client.texts().filter(server.playback()->current().track.name).isEmpty());
}

// Its errors end up on the console, and the screen stays as it was until there is a song.
void PlayerScreenTest::playerWithoutASongKeepsWhatWasShown()
{
    OutputsWindow client;
    const QRegularExpression error("TypeError: Cannot read property 'currTimeChanged' of null"_s);
    QTest::ignoreMessage(QtWarningMsg, error);
    client.click({50, 65 + 45});
    const QString buttons = QString(playing).replace("pause"_s, "play"_s);
    QTRY_COMPARE(look(client), (QStringList{"Terrace"_s, "Music"_s, QString(), buttons}));
    const CatalogueTrack first = client.server.catalogue().track(0);
    client.server.tracklist()->add({first});
    client.server.playback()->play();
    QTRY_COMPARE(look(client),
                 (QStringList{"Terrace"_s, "Music"_s, first.name, albumLine(first), "cover"_s, playing}));
}

void PlayerScreenTest::rowRemovedWhileItIsAside()
{
    PlayerWindow client;
    client.server.tracklist()->add(tracks(client, 30, 33));
    QVERIFY(openQueue(&client));
    QTRY_COMPARE(rows(client).size(), 5);
    swipe(&client, queueRow(1), -100);
    QTRY_VERIFY(client.item("SongCell"_s, 1)->property("aside").toBool());
    client.server.tracklist()->remove({2});
    QTRY_COMPARE(rows(client).size(), 4);
    client.forgetRequests();
    for (int row = 0; row < 4; ++row)
        QVERIFY(!client.item("SongCell"_s, row)->property("aside").toBool());
    client.click(queueRow(1));
    QTRY_COMPARE(client.requests(), QStringList{R"(playback.play{"tlid":3})"_s});
}

namespace {

// The knob is pressed at 40 of 100 and pulled to the right; the button stays down.
QPoint pullVolume(ClientWindow *client)
{
    const QPoint knob(20 + 164, volumeMiddle.y());
    client->press(knob);
    for (int x = 10; x <= 100; x += 10)
        client->moveTo(knob + QPoint(x, 0));
    return knob + QPoint(100, 0);
}

// Said again and again: a command that is still on its way may undo it once.
int volumeAfter(ClientWindow *client, int volume)
{
    client->device.setVolume(3, volume);
    return client->item("HorizontalSlider"_s)->property("value").toInt();
}

} // namespace

void PlayerScreenTest::deviceDoesNotMoveAHeldSlider()
{
    PlayerWindow client;
    const QQuickItem *slider = client.item("HorizontalSlider"_s);
    const QPoint end = pullVolume(&client);
    const int held = slider->property("value").toInt();
    QVERIFY(held > 50);
    client.device.setVolume(3, 5);
    client.device.setMute(3, true); // behind it: when this has arrived, so has the other
    QTRY_VERIFY(look(client).constLast().endsWith("mute_0"_s));
    QCOMPARE(slider->property("value").toInt(), held);
    client.release(end);
    QTRY_COMPARE(client.lastCommand(), "UI_COMMAND|2000|100|3|%1"_s.arg(held));
}

// The host changes the tab: the finger is still on the volume, and the screen has no device any more.
void PlayerScreenTest::tabGoesAwayUnderAHeldSlider()
{
    PlayerWindow client;
    const QPoint end = pullVolume(&client);
    client.selectTab(0);
    client.release(end);
    client.selectTab(1);
    QVERIFY(!client.item("HorizontalSlider"_s)->property("sliding").toBool());
    QTRY_COMPARE(volumeAfter(&client, 12), 12);
}

// A person who once clicked on the volume sees the knob there from then on; what the device says later moves the
// value alone.
void PlayerScreenTest::knobStaysWhereItWasPutByAClick()
{
    PlayerWindow client;
    const QColor knob = client.item("PlayerTopBar"_s)->property("color").value<QColor>();
    client.click(volumeMiddle + QPoint(40, 0)); // 60 of 100
    QTRY_COMPARE(client.device.state().outputs.first().volume, 60);
    QTRY_COMPARE(volumeAfter(&client, 10), 10);
    QVERIFY(client.pixel(volumeMiddle + QPoint(35, 0)) != knob);
    QCOMPARE(client.pixel(volumeMiddle + QPoint(60, 0)), knob); // the bare track behind it
}

HALVORA_SUITE_MAIN(PlayerScreenTest)

#include "tst_playerscreen.moc"
