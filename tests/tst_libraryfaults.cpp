// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/HeldReplies.h"
#include "support/Listener.h"
#include "support/ObjectCount.h"
#include "support/Rows.h"
#include "support/SceneItems.h"
#include "support/Studio.h"
#include "support/Suite.h"

#include "navigation/BrowseListView.h"
#include "player/PlayerTiming.h"
#include "simulator/MopidyModels.h"

#include <QBuffer>
#include <QQmlEngine>

using namespace Requests;

/**
 * What libraries do to their screens when they are large, slow, broken or hostile, by a real window and the replies
 * that reach it.
 */
class LibraryFaultsTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    // What works
    void asksForRowsInReachAlone();
    void directoriesAskForNothing();
    void searchAnswers();
    void fallbackFindsThePicture();
    void nothingStaysBehind();

    // What goes wrong
    void nobodyWaitsForTheAnswer_data();
    void nobodyWaitsForTheAnswer();
    void wrongAnswers();
    void hostileRows();
    void hostileNames();
};

namespace {

constexpr int album = 10; // its first track, in the catalogue
constexpr int rowHeight = 75;

QJsonObject trackRef(const CatalogueTrack &track)
{
    return MopidyModels::ref("track"_s, track.uri, track.name);
}

// The list that is painted last below `item`, of those in the window.
QQuickItem *lastList(QQuickItem *item, qreal windowHeight)
{
    if (!item->isVisible())
        return nullptr;
    const bool isList = QByteArray(item->metaObject()->className()).startsWith("RefreshableList_QML");
    if (isList && item->mapToScene({}).y() < windowHeight)
        return item;
    const QList<QQuickItem *> children = item->childItems();
    for (auto child = children.crbegin(); child != children.crend(); ++child) {
        if (QQuickItem *list = lastList(*child, windowHeight))
            return list;
    }
    return nullptr;
}

// The list of the screen on top of the library, the search or the playlists.
QQuickItem *topList(const ClientWindow &client)
{
    return lastList(client.view.rootObject(), client.view.height());
}

int rowsOnTop(const ClientWindow &client)
{
    return topList(client)->property("count").toInt();
}

// What stands in the rows of the list on top, pictures included.
QStringList rowsOf(const ClientWindow &client)
{
    QStringList rows;
    const QList<QQuickItem *> items = SceneItems::shown(topList(client));
    for (const QQuickItem *item : items) {
        const QString says = item->property(item->inherits("QQuickText") ? "text" : "imgSource").toString();
        if (!says.isEmpty())
            rows.append(says);
    }
    return rows;
}

BrowseListView *viewOf(QQuickItem *item)
{
    while (item && !qobject_cast<BrowseListView *>(item))
        item = item->parentItem();
    return qobject_cast<BrowseListView *>(item);
}

// Pulls the list by a finger that rests at its end, or lets it go in motion, and waits for its rest.
bool pull(ClientWindow *client, int distance, bool flick)
{
    constexpr int steps = 10;
    const QPoint start(200, distance < 0 ? 560 : 160);
    client->press(start);
    for (int step = 1; step <= steps; ++step)
        client->moveTo(start + QPoint(0, distance * step / steps));
    const QPoint end = start + QPoint(0, distance);
    for (int step = 0; step < 30 && !flick; ++step)
        client->moveTo(end + QPoint(step % 2, step % 2));
    client->release(end);
    const QQuickItem *list = topList(*client);
    return Waiting::comes([&] { return !list->property("moving").toBool(); });
}

// Opens the list of albums, and shows `rows` as the entries of the first one.
bool showRows(Listener *listener, const QJsonArray &rows)
{
    HeldReplies browse(&listener->client.server, {"core.library.browse"_s});
    return listener->client.clickOn(listener->track(0).albumName) && browse.wait()
        && browse.answer({{"result"_s, rows}});
}

bool goBack(Listener *listener)
{
    const QQuickItem *list = topList(listener->client);
    listener->client.click(Listener::backButton);
    return Waiting::comes([&] { return topList(listener->client) != list; });
}

// What a backend finds: tracks of these names.
QJsonObject found(const QString &backend, const QString &names)
{
    QJsonArray tracks;
    for (const QString &name : names.split(QLatin1Char(' ')))
        tracks << QJsonObject{{"uri"_s, "local:track:"_s + name}, {"name"_s, name}};
    return {{"uri"_s, backend}, {"tracks"_s, tracks}};
}

void answerSearches(Listener *listener, const QJsonValue &answer)
{
    listener->client.server.faults().results.insert("core.library.search"_s, answer);
}

// Searches for the same text again.
bool searchAgain(Listener *listener, const QJsonValue &answer)
{
    answerSearches(listener, answer);
    const auto searches = [=] { return listener->client.server.requestCount("core.library.search"_s); };
    const int before = searches();
    listener->client.click({405, 44 + 25});
    return Waiting::comes([&] { return searches() > before; })
        && HeldReplies::areTaken(&listener->client.server);
}

} // namespace

void LibraryFaultsTest::initTestCase()
{
    PlayerTiming::current() = {50, 25, 50};
    qputenv("HALVORA_LASTFM_ENDPOINT", "http://");
}

void LibraryFaultsTest::asksForRowsInReachAlone()
{
    constexpr int count = 10000;
    constexpr int reach = 10;
    const QPair<int, bool> pulls[] = {{-360, false}, {-300, true}, {-30, false}, {300, false},
                                      {300, true},   {-300, true}}; // by a distance, with a flick
    PlayingListener listener{Catalogue(1, count)};
    ClientWindow &client = listener.client;
    client.click(Listener::libraryButton);
    QVERIFY(client.clickOn("Local media"_s));
    QVERIFY(listener.shows("Tracks"_s));
    client.forgetRequests();
    QVERIFY(client.clickOn("Tracks"_s));
    const QStringList first = listener.uris(0, 2 * reach);
    QVERIFY(listener.sent({ofUri("library.browse"_s, "local:directory?type=track"_s),
                           ofUris("library.lookup"_s, first), ofUris("library.get_images"_s, first)}));
    QVERIFY(listener.shows(listener.details(0)));
    QCOMPARE(rowsOnTop(client), count);
    QStringList filled = first;
    QQuickItem *list = topList(client);
    bool early = false;
    connect(viewOf(list), &BrowseListView::lookup, this, [&] { early |= list->property("moving").toBool(); });
    int silent = 0;
    for (const auto &each : pulls) {
        QVERIFY(HeldReplies::areTaken(&client.server));
        client.forgetRequests();
        QVERIFY(pull(&client, each.first, each.second));
        const qreal top = list->property("contentY").toReal();
        const int from = qMax(0, int(top / rowHeight) - reach);
        const int to = qMin(count, int((top + list->height()) / rowHeight) + reach);
        QStringList missing;
        for (const QString &uri : listener.uris(from, to)) {
            if (!filled.contains(uri))
                missing.append(uri);
        }
        const QStringList whole{ofUris("library.lookup"_s, missing), ofUris("library.get_images"_s, missing)};
        silent += missing.isEmpty();
        QVERIFY2(!early, "a list in motion asks for nothing");
        QVERIFY(listener.sent(missing.isEmpty() ? QStringList() : whole));
        filled += missing;
    }
    QVERIFY(silent > 0 && filled.size() > 2 * first.size()); // both have been seen
}

// And rows behind them are counted from the first of their own.
void LibraryFaultsTest::directoriesAskForNothing()
{
    PlayingListener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.openAlbums(0));
    QJsonArray rows;
    for (int i = 0; i < 12; ++i)
        rows << MopidyModels::ref("directory"_s, "local:%1"_s.arg(i), "Directory %1"_s.arg(i));
    for (int i = 0; i < 30; ++i)
        rows << trackRef(listener.track(i));
    QVERIFY(HeldReplies::areTaken(&client.server));
    client.forgetRequests();
    QVERIFY(showRows(&listener, rows));
    QVERIFY(listener.shows("directory"_s)); // the heading
    QVERIFY(listener.sent({ofUri("library.browse"_s, listener.track(0).albumUri)}));
    while (topList(client)->property("contentY").toReal() < 44 + 12 * 44 + 44 + rowHeight)
        QVERIFY(pull(&client, -200, false));
    QTRY_COMPARE(client.requests().filter("library.lookup"_s).size(), 1);
    QVERIFY(client.requests().constFirst().contains(listener.track(0).uri));
}

void LibraryFaultsTest::searchAnswers()
{
    const QString solo = R"({"artists":[{"uri":"x:1","name":"Solo"}]})"_s;
    const QString six = "a b c d e f"_s;
    const QPair<QJsonValue, QString> cases[] = {
        {QJsonArray{found("a"_s, "x"_s), found("b"_s, "y"_s)}, "Tracks Show more... y y"_s},
        {QJsonArray{found("a"_s, six), found("b"_s, six)}, "Tracks Show more... a b c d e a b c d e"_s},
        {json(R"([{"tracks":[],"artists":[]}])"_s), QString()},
        {QJsonArray{found("a"_s, six), json(solo)},
         "Tracks Show more... a b c d e Artists Show more... Solo"_s},
        {json("[%1]"_s.arg(solo)), "Solo"_s},
        {json(R"({"tracks":[1]})"_s), QString()},
        {json(R"([null,7,"tracks",[{"artists":[{"uri":"x:1","name":"Solo"}]}]])"_s), QString()},
        {json(R"([{"tracks":7,"albums":{}}])"_s), QString()},
        {json(R"([{"artists":[7,null]}])"_s), QString()},
    };
    PlayingListener listener;
    answerSearches(&listener, QJsonArray());
    QVERIFY(listener.search("x"_s));
    for (int change = 0; change < 15; ++change) {
        const auto &each = cases[change % std::size(cases)];
        QVERIFY(searchAgain(&listener, each.first));
        const auto names = [&] {
            QStringList texts = rowsOf(listener.client);
            texts.removeAll("\n"_s);
            const QStringList pictures = texts.filter("qrc:"_s);
            for (const QString &picture : pictures)
                texts.removeAll(picture);
            return texts.join(QLatin1Char(' '));
        };
        QTRY_COMPARE(names(), each.second);
        if (rowsOnTop(listener.client) > 5)
            QVERIFY(pull(&listener.client, -100, false)); // another heading at the top
    }
}

// Where the music server has no picture, another service is asked; the screen is left once while that still answers.
void LibraryFaultsTest::fallbackFindsThePicture()
{
    Listener listener{Catalogue(1, 50)};
    ClientWindow &client = listener.client;
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer png;
    image.save(&png, "PNG");
    ArtworkServer service;
    QVERIFY(service.listen());
    qputenv("HALVORA_LASTFM_ENDPOINT", service.url({}).toUtf8());
    connect(&service, &ArtworkServer::requestReceived, this, [&](const QString &path) {
        if (!path.startsWith("/2.0/"_s))
            return;
        const QString picture = "/%1.png"_s.arg(qHash(path));
        service.setFile(picture, "image/png", png.data());
        service.setFile(path, "application/json",
                        R"({"album":{"image":[{"size":"small","#text":")" + service.url(picture).toUtf8()
                            + R"("}]}})");
    });
    service.faults().onlyPath = "/2.0/"_s;
    service.faults().slowBytesPerTick = 5;
    QVERIFY(listener.start());
    QVERIFY(listener.openAlbums(0));
    QVERIFY(listener.shows(listener.track(40).artists.constFirst().name));
    QVERIFY(goBack(&listener));
    const int running = ObjectCount::threads();
    QJsonObject none;
    for (int position = 0; position < 50; position += 10)
        none.insert(listener.track(position).albumUri, QJsonArray());
    client.server.faults().results.insert("core.library.get_images"_s, none);
    QVERIFY(client.clickOn("Albums"_s));
    QTRY_COMPARE(service.requestedPaths().filter("/2.0/"_s).size(), 5);
    client.click(Listener::rightButton);
    QTRY_COMPARE(ObjectCount::threads(), running);
    service.faults() = {};
    QVERIFY(listener.openAlbums(0));
    for (int position = 0; position < 50; position += 10) {
        const QQuickItem *label = client.itemWithText(listener.track(position).albumName);
        QTRY_COMPARE(client.pixel(label->mapToScene({-50, 20}).toPoint()), QColor(Qt::red));
    }
    qputenv("HALVORA_LASTFM_ENDPOINT", "http://");
}

void LibraryFaultsTest::nobodyWaitsForTheAnswer_data()
{
    Rows::add("screen leaves methods"_s, R"(
        library popped   ; library   ; pops   ; library.browse library.lookup library.get_images
        library closed   ; library   ; closes ; library.browse library.lookup library.get_images tracklist.index
        search closed    ; search    ; closes ; library.search library.browse library.lookup library.get_images
        playlists popped ; playlists ; pops   ; playlists.get_items library.lookup library.get_images
        playlists closed ; playlists ; closes ; playlists.get_items library.lookup library.get_images)"_s);
}

static bool enter(Listener *listener, const QString &screen)
{
    if (screen == "library"_s)
        return listener->openAlbums(30);
    if (screen == "playlists"_s)
        return listener->openPlaylists();
    answerSearches(listener, listener->results(1));
    return listener->search("x"_s);
}

// For each request in turn: it is sent, its screen is left, and then its answer comes.
void LibraryFaultsTest::nobodyWaitsForTheAnswer()
{
    QFETCH(QString, screen);
    QFETCH(QString, methods);
    QFETCH(QString, leaves);
    const bool closes = leaves == "closes"_s;
    Listener listener;
    ClientWindow &client = listener.client;
    const int shown = screen == "search"_s ? 100 : 30;
    const QString row = screen == "playlists"_s ? "Morning"_s : listener.track(shown).albumName;
    QVERIFY(listener.start());
    QVERIFY(closes || enter(&listener, screen));
    for (const QString &method : methods.split(QLatin1Char(' '))) {
        const bool searches = method == "library.search"_s;
        QVERIFY(searches || !closes || enter(&listener, screen));
        QVERIFY(HeldReplies::areTaken(&client.server));
        HeldReplies held(&client.server, {"core."_s + method});
        QVERIFY(searches ? enter(&listener, screen) : client.clickOn(row));
        QVERIFY(method != "tracklist.index"_s || client.clickOn(listener.track(shown).name));
        QVERIFY(held.wait());
        const QPointer<QQuickItem> view(viewOf(topList(client)));
        client.click(closes ? Listener::rightButton : Listener::backButton);
        QTRY_VERIFY(!view);
        QTRY_VERIFY(!closes || screen != "playlists"_s
                    || client.item("PlaylistsNavPopup"_s)->y() >= client.view.height());
        client.forgetRequests();
        const QStringList before = client.texts();
        QVERIFY(held.answer());
        QVERIFY(!client.requests().join(QString()).contains("tracklist.add"_s));
        QCOMPARE(client.texts(), before);
    }
    QVERIFY(!closes || enter(&listener, screen));
    QVERIFY(client.clickOn(row));
    QVERIFY(listener.shows(listener.details(shown)));
}

// Each request that the screens make, answered wrongly and twice.
void LibraryFaultsTest::wrongAnswers()
{
    Listener listener;
    ClientWindow &client = listener.client;
    // Known keys with values that are none, and unknown ones.
    const QStringList known = listener.uris(album, album + 6);
    const QString rubbish =
        R"({"result":{"":[{}],"x:1":[{"uri":"x:1"}],"%1":null,"%2":7,"%3":{},"%4":[null],)"
        R"("%5":[[]],"%6":[{"uri":1}]}})"_s;
    const QString list = R"({"result":[null,7,"x",[],[7]]})"_s;
    QVERIFY(listener.start());
    QVERIFY(listener.openAlbums(0));
    for (const QString &text :
         {R"({"result":null})"_s, R"({"result":1e300})"_s, R"({"error":{"code":0,"message":"Broken"}})"_s,
          rubbish.arg(known[0], known[1], known[2], known[3], known[4], known[5]), list}) {
        const QJsonObject reply = json(text).toObject();
        for (const QStringList &methods :
             {QStringList{"core.library.browse"_s},
              QStringList{"core.library.lookup"_s, "core.library.get_images"_s}}) {
            HeldReplies held(&client.server, methods);
            QVERIFY(client.clickOn(listener.track(album).albumName));
            QVERIFY(held.wait(methods.size()));
            QVERIFY(HeldReplies::areTaken(&client.server));
            const QStringList before = rowsOf(client);
            QVERIFY(held.answer(reply, 2));
            QCOMPARE(rowsOf(client), before);
            QVERIFY(goBack(&listener));
        }
        QVERIFY(client.clickOn(listener.track(album).albumName));
        QVERIFY(listener.shows(listener.details(album)));
        client.forgetRequests();
        HeldReplies queue(&client.server, {"core.tracklist.index"_s, "core.tracklist.add"_s});
        QVERIFY(client.clickOn(listener.track(album + 1).name));
        for (int request = 0; request < 2; ++request) {
            QVERIFY(queue.wait());
            QVERIFY(queue.answer(reply, 2));
        }
        const QString added = ofUris("tracklist.add"_s, listener.uris(album + 1, album + 2));
        QCOMPARE(client.requests().mid(0, 2), (QStringList{askPosition(), added}));
        QVERIFY2(text == list || client.requests().size() == 2, "nothing was added, so nothing is played");
        QVERIFY(goBack(&listener));
    }
}

// Rows that are none of ours ahead of one that is: which are shown, and what a tap on them sends.
void LibraryFaultsTest::hostileRows()
{
    PlayingListener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.openAlbums(0));
    const QString twin = listener.track(1).uri;
    QJsonArray rows;
    for (const QString &row :
         {R"({"type":"track","uri":7,"name":"A"})"_s, R"({"type":"directory","name":"B"})"_s,
          R"({"type":7,"uri":"x:1","name":"C"})"_s, R"({"type":"image","uri":"x:1","name":"D"})"_s, "null"_s,
          R"(["track"])"_s, R"({"type":"track","uri":"%1","name":"E"})"_s.arg(twin),
          R"({"type":"artist","uri":"x:1","name":"F"})"_s})
        rows << json(row);
    rows << trackRef(listener.track(1));
    client.server.faults().results.insert("core.tracklist.add"_s, QJsonValue()); // plays nothing
    QVERIFY(showRows(&listener, rows));
    QVERIFY(listener.shows("F"_s) && !client.showsText("C"_s) && !client.showsText("D"_s));
    const QStringList added{askPosition(), add({twin}, 1)};
    const QPair<QString, QStringList> taps[] = {
        {listener.track(1).name, added},
        {"A"_s, {}},
        {"B"_s, {}},
        {"E"_s, added},
        {"F"_s, {ofUri("library.browse"_s, "x:1"_s)}},
    };
    for (const auto &tap : taps) {
        QVERIFY(HeldReplies::areTaken(&client.server));
        client.forgetRequests();
        const QQuickItem *list = topList(client);
        QVERIFY2(client.clickOn(tap.first), qPrintable(tap.first));
        QTRY_VERIFY2(client.requests().size() >= tap.second.size(), qPrintable(tap.first));
        QVERIFY(HeldReplies::areTaken(&client.server));
        QCOMPARE(client.requests().mid(0, 2), tap.second);
        while (topList(client) != list)
            QVERIFY(goBack(&listener));
    }
}

void LibraryFaultsTest::hostileNames()
{
    PlayingListener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.openAlbums(0));
    for (const QString &name :
         {"<img src=\"qrc:/HalvoraImgs/Images/menu_dots.png\"> x"_s, "\"x' \\\" %1 %2 %n"_s,
          "שלום x \u202E עולם"_s, "x"_s + QString(200, QChar(0x0301)), "one\ntwo\r\n\tthree"_s,
          QString(QChar(0xd800)) + "x"_s, QString(10000, QLatin1Char('W'))}) {
        QJsonArray rows;
        for (const char *type : {"directory", "track", "album", "artist"})
            rows << MopidyModels::ref(QLatin1String(type), "x:"_s + QLatin1String(type), name);
        rows << trackRef(listener.track(0));
        HeldReplies details(&client.server, {"core.library.lookup"_s});
        QVERIFY(showRows(&listener, rows));
        QVERIFY(listener.shows(listener.track(0).name));
        QCOMPARE(client.texts().count(name), 4);
        QCOMPARE(SceneItems::strays(topList(client)), QStringList());
        client.forgetRequests();
        const QQuickItem *list = topList(client);
        QVERIFY(client.clickOn(name)); // its directory
        QTRY_VERIFY(client.requests().contains(ofUri("library.browse"_s, "x:directory"_s)));
        QTRY_VERIFY(topList(client) != list);
        QCOMPARE(client.item("NavigationBar"_s)->property("title").toString(), name);
        QVERIFY(goBack(&listener));
        QVERIFY(goBack(&listener));
    }
}

// Rows are nobody's, and all that may stay.
void LibraryFaultsTest::nothingStaysBehind()
{
    constexpr int rounds = 100;
    constexpr int rows = 3 + 1; // with their section
    PlayingListener listener;
    ClientWindow &client = listener.client;
    const auto round = [&] {
        client.click(Listener::libraryButton);
        if (!listener.shows("Local media"_s))
            return false;
        const QPointer<QQuickItem> view(viewOf(topList(client)));
        const bool isOpen = view != nullptr;
        client.click(Listener::rightButton);
        return isOpen && Waiting::comes([&] { return !view; });
    };
    const auto alive = [&] {
        client.view.engine()->collectGarbage();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return ObjectCount::alive();
    };
    ObjectCount::alive();
    QVERIFY(round()); // what is made once for all
    const int objects = alive();
    const int running = ObjectCount::threads();
    for (int i = 0; i < rounds; ++i)
        QVERIFY(round());
    constexpr int passing = 50; // of the mirror, and pictures on their way
    QTRY_VERIFY2(alive() - objects <= rounds * rows + passing, QByteArray::number(alive() - objects));
    QTRY_COMPARE(ObjectCount::threads(), running);
    QVERIFY(!client.item("NavigationBar"_s, 1)); // but that of the playlists
}

HALVORA_SUITE_MAIN(LibraryFaultsTest)
#include "tst_libraryfaults.moc"
