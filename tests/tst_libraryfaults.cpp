// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/HeldReplies.h"
#include "support/Listener.h"
#include "support/ObjectCount.h"
#include "support/SceneItems.h"
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
    void searchAnswersUnderAnotherScreen();
    void sectionsComeAndGo();
    void fallbackFindsThePicture();

    // What goes wrong
    void nobodyWaitsForTheAnswer_data();
    void nobodyWaitsForTheAnswer();
    void wrongAnswers_data();
    void wrongAnswers();
    void hostileRows();
    void hostileNames();
    void fallbackFails_data();
    void fallbackFails();
    void nothingStaysBehind_data();
    void nothingStaysBehind();
    void serverGoesAndComes();
};

namespace {

constexpr int album = 10; // its first track, in the catalogue
constexpr int rowHeight = 75;

QJsonObject result(const QJsonValue &value)
{
    return {{"result"_s, value}};
}

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
        for (const char *property : {"text", "imgSource"}) {
            const bool says = item->inherits("QQuickText") == (qstrcmp(property, "text") == 0);
            const QString text = says ? item->property(property).toString() : QString();
            if (!text.isEmpty())
                rows.append(text);
        }
    }
    return rows;
}

BrowseListView *viewOf(QQuickItem *list)
{
    QQuickItem *item = list;
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
    return QTest::qWaitFor([&] { return !list->property("moving").toBool(); });
}

int threads()
{
    return int(QDir("/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

// Opens the list of albums, and shows `rows` as the entries of the first one.
bool showRows(Listener *listener, const QJsonArray &rows)
{
    HeldReplies browse(&listener->client.server, {"core.library.browse"_s});
    return listener->client.clickOn(listener->track(0).albumName) && browse.wait()
        && browse.answer(result(rows));
}

bool goBack(Listener *listener)
{
    const QQuickItem *list = topList(listener->client);
    listener->client.click(Listener::backButton);
    return QTest::qWaitFor([&] { return topList(listener->client) != list; });
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
    struct Pull
    {
        int distance;
        bool flick;
    };
    const Pull pulls[] = {{-360, false}, {-300, true}, {-90, true}, {-30, false}, {-300, true},
                          {300, false},  {300, true},  {-60, true}, {-300, true}};
    Listener listener{Catalogue(1, count)};
    ClientWindow &client = listener.client;
    QVERIFY(listener.start());
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
    QStringList story;
    const auto note = [&](const QString &what) {
        story.append(list->property("moving").toBool() ? what + " in motion"_s : what);
    };
    connect(viewOf(list), &BrowseListView::lookup, this, [&] { note("lookup"_s); });
    connect(viewOf(list), &BrowseListView::lookupImages, this, [&] { note("pictures"_s); });
    int silent = 0;
    for (const Pull &each : pulls) {
        QVERIFY(HeldReplies::areTaken(&client.server));
        client.forgetRequests();
        story.clear();
        QVERIFY(pull(&client, each.distance, each.flick));
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
        QCOMPARE(story, missing.isEmpty() ? QStringList() : QStringList({"lookup"_s, "pictures"_s}));
        QVERIFY(listener.sent(missing.isEmpty() ? QStringList() : whole));
        filled += missing;
    }
    QVERIFY(silent > 0 && filled.size() > 60); // both have been seen
}

void LibraryFaultsTest::directoriesAskForNothing()
{
    Listener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.start());
    QVERIFY(listener.openAlbums(0));
    QJsonArray rows;
    for (int i = 0; i < 12; ++i)
        rows << MopidyModels::ref("directory"_s, "local:%1"_s.arg(i), "Directory %1"_s.arg(i));
    for (int i = 0; i < 30; ++i)
        rows << trackRef(listener.track(i));
    QVERIFY(HeldReplies::areTaken(&client.server));
    client.forgetRequests();
    QVERIFY(showRows(&listener, rows));
    QVERIFY(listener.sent({ofUri("library.browse"_s, listener.track(0).albumUri)}));
    QVERIFY(listener.shows("directory"_s)); // the heading
    QVERIFY(pull(&client, -200, false));
    QVERIFY(client.showsText("track"_s));
    QVERIFY(listener.sent({}));
    while (topList(client)->property("contentY").toReal() < 44 + 12 * 44 + 44 + rowHeight)
        QVERIFY(pull(&client, -200, false));
    QTRY_COMPARE(client.requests().filter("library.lookup"_s).size(), 1);
}

static QJsonObject found(const QString &backend, const QStringList &names)
{
    QJsonArray tracks;
    for (const QString &name : names)
        tracks << QJsonObject{{"uri"_s, "local:track:"_s + name}, {"name"_s, name}};
    return {{"uri"_s, backend}, {"tracks"_s, tracks}};
}

// Searches for the same text again.
static bool searchAgain(Listener *listener, const QJsonValue &answer)
{
    listener->client.server.faults().results.insert("core.library.search"_s, answer);
    const int before = listener->client.server.requestCount("core.library.search"_s);
    listener->client.click({405, 44 + 25});
    return QTest::qWaitFor(
               [&] { return listener->client.server.requestCount("core.library.search"_s) > before; })
        && HeldReplies::areTaken(&listener->client.server);
}

void LibraryFaultsTest::searchAnswers()
{
    struct Case
    {
        const char *name;
        QJsonValue answer;
        QStringList texts; // names and headings in the list
    };
    const QStringList six{"a"_s, "b"_s, "c"_s, "d"_s, "e"_s, "f"_s};
    const QString heading = "Tracks"_s;
    const QString more = "Show more..."_s;
    const QJsonObject artist{
        {"artists"_s, QJsonArray{QJsonObject{{"uri"_s, "x:1"_s}, {"name"_s, "Solo"_s}}}}};
    const QJsonObject nothing{{"tracks"_s, QJsonArray()}, {"artists"_s, QJsonArray()}};
    const QStringList firstFive{heading, more, "a"_s, "b"_s, "c"_s, "d"_s, "e"_s};
    const Case cases[] = {
        {"one kind", QJsonArray{found("a"_s, {"x"_s, "y"_s})}, {"x"_s, "y"_s}},
        {"two backends",
         QJsonArray{found("a"_s, {"x"_s}), found("b"_s, {"y"_s})},
         {heading, more, "y"_s, "y"_s}},
        {"more than five twice", QJsonArray{found("a"_s, six), found("b"_s, six)}, firstFive + six.mid(0, 5)},
        {"empty arrays", QJsonArray{nothing}, {}},
        {"artists alone", QJsonArray{artist}, {"Solo"_s}},
        {"none", QJsonArray(), {}},
        {"no array", QJsonObject{{"tracks"_s, QJsonArray{1}}}, {}},
        {"no objects", QJsonArray{QJsonValue(), 7, "tracks"_s, QJsonArray{artist}}, {}},
        {"kinds that are no arrays", QJsonArray{QJsonObject{{"tracks"_s, 7}, {"albums"_s, artist}}}, {}},
        {"rows that are no objects", QJsonArray{QJsonObject{{"artists"_s, QJsonArray{7, QJsonValue()}}}}, {}},
    };
    Listener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.start());
    client.server.faults().results.insert("core.library.search"_s, QJsonArray());
    QVERIFY(listener.search("x"_s));
    for (const Case &each : cases) {
        QVERIFY(searchAgain(&listener, each.answer));
        const auto names = [&] {
            QStringList texts;
            for (const QString &text : rowsOf(client)) {
                if (text != "\n"_s && !text.startsWith("qrc:"_s))
                    texts << text;
            }
            return texts;
        };
        QVERIFY2(QTest::qWaitFor([&] { return names() == each.texts; }),
                 qPrintable(QLatin1String(each.name) + ": "_s + names().join(", "_s)));
    }
}

void LibraryFaultsTest::searchAnswersUnderAnotherScreen()
{
    Listener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.start());
    client.server.faults().results.insert("core.library.search"_s, listener.results(6));
    QVERIFY(listener.search("x"_s));
    QVERIFY(listener.shows(listener.details(album)));
    client.server.faults().results.insert("core.library.search"_s, QJsonArray{found("a"_s, {"Late"_s})});
    HeldReplies search(&client.server, {"core.library.search"_s});
    client.click({405, 44 + 25});
    QVERIFY(search.wait());
    QVERIFY(client.clickOn(listener.track(100).albumName));
    QVERIFY(listener.shows(listener.details(101)));
    const QStringList before = rowsOf(client);
    QVERIFY(search.answer(result(client.server.faults().results.value("core.library.search"_s))));
    QCOMPARE(rowsOf(client), before);
    QVERIFY(goBack(&listener));
    QTRY_VERIFY(rowsOf(client).contains("Late"_s));
    QCOMPARE(rowsOnTop(client), 1);
}

void LibraryFaultsTest::sectionsComeAndGo()
{
    Listener listener;
    QVERIFY(listener.start());
    const QJsonArray answers[] = {listener.results(6), {found("a"_s, {"x"_s})}, {}, listener.results(1)};
    const int rows[] = {7, 1, 0, 3};
    listener.client.server.faults().results.insert("core.library.search"_s, answers[3]);
    QVERIFY(listener.search("x"_s));
    for (int round = 0; round < 100; ++round) {
        const int which = round % 4;
        QVERIFY(searchAgain(&listener, answers[which]));
        QCOMPARE(rowsOnTop(listener.client), rows[which]);
        if (which == 0)
            QVERIFY(pull(&listener.client, -100, false)); // another heading at the top
    }
}

// The service that knows pictures where the music server has none, by album.
class PictureService final
{
public:
    explicit PictureService(Listener *listener) : m_listener(listener)
    {
        server.listen();
        qputenv("HALVORA_LASTFM_ENDPOINT", server.url({}).toUtf8());
    }

    ~PictureService() { qputenv("HALVORA_LASTFM_ENDPOINT", "http://"); }

    // No album of the list has a picture of its own.
    void emptyShelves()
    {
        QJsonObject none;
        for (int position = 0; position < m_listener->client.server.catalogue().trackCount(); position += 10)
            none.insert(m_listener->track(position).albumUri, QJsonArray());
        m_listener->client.server.faults().results.insert("core.library.get_images"_s, none);
    }

    // Answers every question; "%1" stands for the number of the question.
    void know(const QByteArray &answer)
    {
        QObject::connect(&server, &ArtworkServer::requestReceived, &server,
                         [this, answer](const QString &path) {
                             if (!path.startsWith("/2.0/"_s))
                                 return;
                             QByteArray numbered = answer;
                             server.setFile(path, "application/json",
                                            numbered.replace("%1", QByteArray::number(++m_questions)));
                         });
    }

    void knowPictures()
    {
        QImage image(64, 64, QImage::Format_RGB32);
        image.fill(colour);
        QBuffer png;
        image.save(&png, "PNG");
        for (int number = 1; number <= 5; ++number)
            server.setFile("/%1.png"_s.arg(number), "image/png", png.data());
        know(R"({"album":{"image":[{"#text":")" + server.url("/%1.png"_s).toUtf8()
             + R"(","size":"small"}]}})");
    }

    static constexpr Qt::GlobalColor colour = Qt::red;
    ArtworkServer server;

private:
    Listener *m_listener;
    int m_questions = 0;
};

// Where the picture of the row at that place stands.
static QPoint pictureOf(const ClientWindow &client, const QString &row)
{
    return client.itemWithText(row)->mapToScene({-50, 20}).toPoint();
}

void LibraryFaultsTest::fallbackFindsThePicture()
{
    Listener listener{Catalogue(1, 50)};
    PictureService service(&listener);
    service.knowPictures();
    QVERIFY(listener.start());
    service.emptyShelves();
    QVERIFY(listener.openAlbums(0));
    for (int position = 0; position < 50; position += 10) {
        const QPoint place = pictureOf(listener.client, listener.track(position).albumName);
        QTRY_COMPARE(listener.client.pixel(place), QColor(PictureService::colour));
    }
    QCOMPARE(service.server.requestedPaths().filter("/2.0/"_s).size(), 5);
}

void LibraryFaultsTest::nobodyWaitsForTheAnswer_data()
{
    QTest::addColumn<QString>("screen");
    QTest::addColumn<QString>("method");
    QTest::addColumn<bool>("closes");
    const auto row = [](const char *screen, const char *method, bool closes) {
        QTest::addRow("%s %s %s", screen, method, closes ? "closed" : "popped")
            << QString::fromLatin1(screen) << QString::fromLatin1(method) << closes;
    };
    for (const bool closes : {false, true}) {
        for (const char *method : {"library.browse", "library.lookup", "library.get_images"}) {
            row("library", method, closes);
            row("search", method, closes);
        }
        for (const char *method : {"playlists.get_items", "library.lookup", "library.get_images"})
            row("playlists", method, closes);
    }
    row("library", "tracklist.index", true);
    row("search", "library.search", true);
}

static bool enter(Listener *listener, const QString &screen)
{
    if (screen == "library"_s)
        return listener->openAlbums(30);
    if (screen == "playlists"_s)
        return listener->openPlaylists();
    listener->client.server.faults().results.insert("core.library.search"_s, listener->results(1));
    return listener->search("x"_s);
}

static QString rowToTap(const Listener &listener, const QString &screen)
{
    return screen == "playlists"_s ? "Morning"_s : listener.track(screen == "library"_s ? 30 : 100).albumName;
}

void LibraryFaultsTest::nobodyWaitsForTheAnswer()
{
    QFETCH(QString, screen);
    QFETCH(QString, method);
    QFETCH(bool, closes);
    Listener listener;
    ClientWindow &client = listener.client;
    const int shown = screen == "search"_s ? 100 : 30;
    QVERIFY(listener.start());
    const bool searches = method == "library.search"_s;
    QVERIFY(searches || enter(&listener, screen));
    QVERIFY(HeldReplies::areTaken(&client.server));
    {
        HeldReplies held(&client.server, {"core."_s + method});
        QVERIFY(searches ? enter(&listener, screen) : client.clickOn(rowToTap(listener, screen)));
        if (method == "tracklist.index"_s)
            QVERIFY(client.clickOn(listener.track(shown).name));
        QVERIFY(held.wait());
        QQuickItem *left = topList(client);
        const QPointer<QQuickItem> view(viewOf(left));
        client.click(closes ? Listener::rightButton : Listener::backButton);
        QTRY_VERIFY(!view);
        if (closes && screen == "playlists"_s)
            QTRY_VERIFY(client.item("PlaylistsNavPopup"_s)->y() >= client.view.height());
        client.forgetRequests();
        const QStringList before = client.texts();
        QVERIFY(held.answer());
        QVERIFY(!client.requests().join(QString()).contains("tracklist.add"_s));
        QCOMPARE(client.texts(), before);
    }
    QVERIFY(!closes || enter(&listener, screen));
    QVERIFY(client.clickOn(rowToTap(listener, screen)));
    QVERIFY(listener.shows(listener.details(shown)));
}

void LibraryFaultsTest::wrongAnswers_data()
{
    QTest::addColumn<QJsonObject>("reply");
    QTest::newRow("null") << result(QJsonValue::Null);
    QTest::newRow("true") << result(true);
    QTest::newRow("number") << result(7.5);
    QTest::newRow("huge number") << result(1e300);
    QTest::newRow("text") << result("local:track:1"_s);
    QTest::newRow("empty object") << result(QJsonObject());
    QTest::newRow("no result") << QJsonObject{{"jsonrpc"_s, "2.0"_s}};
    QTest::newRow("error") << QJsonObject{{"error"_s, QJsonObject{{"code"_s, 0}, {"message"_s, "Broken"_s}}}};
    // Known keys with values that are none, and unknown ones.
    const Catalogue catalogue;
    const QJsonValue values[] = {QJsonValue(),
                                 7,
                                 "x"_s,
                                 QJsonArray(),
                                 QJsonObject(),
                                 QJsonArray{QJsonValue()},
                                 QJsonArray{7.5},
                                 QJsonArray{QJsonArray()},
                                 QJsonArray{QJsonObject{{"uri"_s, 1}}}};
    QJsonObject rubbish{{QString(), QJsonArray{QJsonObject()}},
                        {"x:1"_s, QJsonArray{QJsonObject{{"uri"_s, "x:1"_s}}}}};
    int position = album;
    for (const QJsonValue &value : values)
        rubbish.insert(catalogue.track(position++).uri, value);
    QTest::newRow("object") << result(rubbish);
    QTest::newRow("array of others") << result(
        QJsonArray{QJsonValue(), 7, "x"_s, QJsonArray(), QJsonArray{7}});
}

// Each request that the screens make, answered wrongly and twice.
void LibraryFaultsTest::wrongAnswers()
{
    QFETCH(QJsonObject, reply);
    Listener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.start());
    QVERIFY(listener.openAlbums(0));
    const bool array = reply.value("result"_s).isArray();
    for (const char *method : {"browse", "lookup", "get_images"}) {
        HeldReplies held(&client.server, {"core.library."_s + QLatin1String(method)});
        QVERIFY(client.clickOn(listener.track(album).albumName));
        QVERIFY(held.wait());
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
    QVERIFY(queue.wait());
    QVERIFY(queue.answer(reply, 2));
    QVERIFY(queue.wait());
    QVERIFY(queue.answer(reply, 2));
    const QStringList queued = client.requests();
    QCOMPARE(queued.mid(0, 2),
             (QStringList{askPosition(), ofUris("tracklist.add"_s, listener.uris(album + 1, album + 2))}));
    QVERIFY(array || queued.size() == 2); // nothing was added, so nothing is played
}

// A row that is none of ours between two that are: what it shows, and what a tap on it sends.
void LibraryFaultsTest::hostileRows()
{
    Listener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.start());
    QVERIFY(listener.openAlbums(0));
    const auto row = [](const QJsonValue &type, const QJsonValue &uri, const QJsonValue &name) {
        return QJsonObject{{"type"_s, type}, {"uri"_s, uri}, {"name"_s, name}};
    };
    const QJsonValue none(QJsonValue::Undefined);
    const QString twin = listener.track(1).uri;
    struct Case
    {
        const char *name;
        QJsonValue row;
        bool shown;
        QStringList sent; // by a tap on it
    };
    const QJsonValue browsed = "x:1"_s;
    const Case cases[] = {
        {"no uri", row("track"_s, none, "Odd"_s), true, {}},
        {"uri is a number", row("track"_s, 7, "Odd"_s), true, {}},
        {"no uri, a directory", row("directory"_s, none, "Odd"_s), true, {}},
        {"no uri, an album", row("album"_s, none, "Odd"_s), true, {}},
        {"no name", row("track"_s, "x:1"_s, none), false, {}},
        {"name is an object", row("album"_s, "x:1"_s, QJsonObject()), false, {}},
        {"no type", row(none, "x:1"_s, "Odd"_s), false, {}},
        {"type is a number", row(7, "x:1"_s, "Odd"_s), false, {}},
        {"unknown type", row("image"_s, "x:1"_s, "Odd"_s), false, {}},
        {"the same uri", row("track"_s, twin, "Odd"_s), true, {askPosition(), add({twin}, 1)}},
        {"the same uri, a directory",
         row("directory"_s, twin, "Odd"_s),
         true,
         {ofUri("library.browse"_s, twin)}},
        {"an artist", row("artist"_s, "x:1"_s, "Odd"_s), true, {ofUri("library.browse"_s, "x:1"_s)}},
        {"null", QJsonValue(), false, {}},
        {"a text", "track"_s, false, {}},
        {"a list", QJsonArray{"track"_s}, false, {}},
    };
    client.server.faults().results.insert("core.tracklist.add"_s, QJsonValue()); // plays nothing
    for (const Case &each : cases) {
        QVERIFY2(showRows(&listener, {trackRef(listener.track(0)), each.row, trackRef(listener.track(1))}),
                 each.name);
        QTRY_VERIFY2(client.showsText(listener.track(1).name), each.name);
        QCOMPARE(client.showsText("Odd"_s), each.shown);
        for (const int neighbour : {0, 1}) {
            QVERIFY(HeldReplies::areTaken(&client.server));
            client.forgetRequests();
            QVERIFY(client.clickOn(listener.track(neighbour).name));
            QVERIFY2(listener.sent({askPosition(), add(listener.uris(neighbour, neighbour + 1), 1)}),
                     each.name);
        }
        const QQuickItem *list = topList(client);
        QVERIFY(!each.shown || client.clickOn("Odd"_s));
        QTRY_VERIFY(client.requests().size() >= each.sent.size());
        QVERIFY(HeldReplies::areTaken(&client.server));
        QCOMPARE(client.requests().mid(0, 2), each.sent);
        while (topList(client) != list)
            QVERIFY(goBack(&listener));
        QVERIFY(goBack(&listener));
    }
}

void LibraryFaultsTest::hostileNames()
{
    Listener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.start());
    QVERIFY(listener.openAlbums(0));
    const QString names[] = {
        "<b>x</b>"_s,
        "<img src=\"qrc:/HalvoraImgs/Images/menu_dots.png\"> x"_s,
        "<a href='http://127.0.0.1/'>x</a> &amp; &lt;"_s,
        "\"x' \\\" %1 %2 %n"_s,
        "שלום x \u202E עולם"_s,
        "مرحبا x"_s,
        "x"_s + QString(200, QChar(0x0301)),
        "one\ntwo\r\n\tthree"_s,
        "\U0001F3B5 \U0001F468\u200D\U0001F469\u200D\U0001F467"_s,
        QString(QChar(0xd800)) + "x"_s,
        QString(10000, QLatin1Char('W')),
        "x "_s.repeated(5000),
    };
    client.server.faults().results.insert("core.tracklist.add"_s, QJsonValue()); // plays nothing
    for (const QString &name : names) {
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
        QVERIFY(client.clickOn(listener.track(0).name));
        QTRY_VERIFY(client.requests().contains(add(listener.uris(0, 1), 1)));
        QVERIFY(client.clickOn(name)); // its directory
        QTRY_VERIFY(client.requests().contains(ofUri("library.browse"_s, "x:directory"_s)));
        QTRY_VERIFY(topList(client) != list);
        QCOMPARE(client.item("NavigationBar"_s)->property("title").toString(), name);
        QVERIFY(goBack(&listener));
        QVERIFY(goBack(&listener));
    }
}

using Spoil = std::function<void(PictureService &)>;
Q_DECLARE_METATYPE(Spoil)

void LibraryFaultsTest::fallbackFails_data()
{
    QTest::addColumn<Spoil>("spoil");
    QTest::addColumn<bool>("closes");
    const auto row = [](const char *name, const Spoil &spoil) {
        QTest::addRow("%s, stays", name) << spoil << false;
        QTest::addRow("%s, left", name) << spoil << true;
    };
    row("rubbish", [](PictureService &service) { service.know("<html>"); });
    row("unknown", [](PictureService &service) { service.know(R"({"error":6})"); });
    row("no picture", [](PictureService &service) { service.know(R"({"album":{"image":[]}})"); });
    row("slow", [](PictureService &service) {
        service.knowPictures();
        service.server.faults().onlyPath = "/2.0/"_s;
        service.server.faults().slowBytesPerTick = 5;
    });
    row("not found", [](PictureService &service) { service.server.faults().notFound = true; });
    row("down", [](PictureService &) { qputenv("HALVORA_LASTFM_ENDPOINT", "http://127.0.0.1:1"); });
}

// The list stays as it is, and no thread is left when the service has been asked; walking goes on.
void LibraryFaultsTest::fallbackFails()
{
    QFETCH(Spoil, spoil);
    QFETCH(bool, closes);
    Listener listener{Catalogue(1, 50)};
    ClientWindow &client = listener.client;
    PictureService service(&listener);
    spoil(service);
    QVERIFY(listener.start());
    QVERIFY(listener.openAlbums(0));
    QVERIFY(listener.shows(listener.track(40).artists.constFirst().name));
    QVERIFY(goBack(&listener));
    const int running = threads();
    service.emptyShelves();
    QVERIFY(client.clickOn("Albums"_s));
    QVERIFY(listener.shows(listener.track(40).artists.constFirst().name));
    if (closes)
        client.click(Listener::rightButton);
    QTRY_COMPARE(threads(), running);
    QVERIFY(closes || client.showsText(listener.track(40).albumName));
    QVERIFY(closes || client.clickOn(listener.track(40).albumName));
    QVERIFY(closes ? listener.openAlbum(40) : listener.shows(listener.details(40)));
}

void LibraryFaultsTest::nothingStaysBehind_data()
{
    QTest::addColumn<QString>("screen");
    QTest::addColumn<int>("rows");        // with their sections, of each opening
    QTest::addColumn<int>("rowsFurther"); // of the screens that are pushed now and then
    QTest::newRow("library") << "library"_s << 3 + 1 << 3 + 1 + 24 + 1;
    QTest::newRow("search") << "search"_s << 0 << 8 + 3 + 10 + 1;
}

// Rows are nobody's, and all that may stay.
void LibraryFaultsTest::nothingStaysBehind()
{
    constexpr int rounds = 200;
    constexpr int pushes = 10;
    QFETCH(QString, screen);
    QFETCH(int, rows);
    QFETCH(int, rowsFurther);
    Listener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.start());
    const bool library = screen == "library"_s;
    client.server.faults().results.insert("core.library.search"_s, listener.results(6));
    const auto push = [&] {
        if (library)
            return client.clickOn("Local media"_s) && client.clickOn("Albums"_s)
                && listener.shows(listener.track(0).albumName);
        listener.searchFor("x"_s);
        return client.clickOn(listener.track(100).albumName) && listener.shows(listener.details(101));
    };
    const auto round = [&](bool pushed) {
        client.click(library ? Listener::libraryButton : Listener::searchButton);
        if (!listener.shows(library ? "Local media"_s : "Search"_s))
            return false;
        const QPointer<QQuickItem> view(viewOf(topList(client)));
        if (!view || (pushed && !push()))
            return false;
        client.click(Listener::rightButton);
        return QTest::qWaitFor([&] { return !view; });
    };
    const auto alive = [&] {
        client.view.engine()->collectGarbage();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return ObjectCount::alive();
    };
    ObjectCount::alive();
    QVERIFY(round(true)); // what is made once for all
    const int objects = alive();
    const int running = threads();
    for (int i = 0; i < rounds; ++i)
        QVERIFY(round(i % (rounds / pushes) == 0));
    constexpr int passing = 50; // of the mirror, and pictures on their way
    QTRY_VERIFY2(alive() - objects <= rounds * rows + pushes * rowsFurther + passing,
                 QByteArray::number(alive() - objects));
    QTRY_COMPARE(threads(), running);
    QVERIFY(!client.item("NavigationBar"_s, 1)); // but that of the playlists
}

void LibraryFaultsTest::serverGoesAndComes()
{
    Listener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.start());
    QVERIFY(listener.openAlbums(album));
    const int sockets = client.server.acceptedSockets();
    {
        const HeldReplies silence(&client.server, {"core.library.browse"_s});
        QVERIFY(client.clickOn(listener.track(album).albumName));
        QVERIFY(silence.wait());
        client.server.stopListening();
        client.server.dropAll();
        QTRY_COMPARE(client.server.liveSockets(), 0);
    }
    QVERIFY(goBack(&listener));
    QVERIFY(client.clickOn(listener.track(0).albumName)); // reaches nobody
    QVERIFY(goBack(&listener));
    QVERIFY(client.server.listenAgain());
    QTRY_VERIFY(client.server.acceptedSockets() > sockets);
    QVERIFY(HeldReplies::areTaken(&client.server));
    QVERIFY(client.clickOn(listener.track(album).albumName));
    QVERIFY(listener.shows(listener.details(album)));
    client.click(Listener::rightButton);
    QVERIFY(listener.openPlaylists());
    client.server.dropAll();
    QTRY_VERIFY(client.server.liveSockets() == 1);
    QVERIFY(HeldReplies::areTaken(&client.server));
    QVERIFY(client.clickOn("Morning"_s));
    QVERIFY(listener.shows(listener.details(30)));
}

HALVORA_SUITE_MAIN(LibraryFaultsTest)
#include "tst_libraryfaults.moc"
