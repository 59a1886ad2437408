// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ClientWindow.h"
#include "support/MopidyServer.h"
#include "support/Suite.h"

#include "player/HalvoraPlayer.h"
#include "player/PlayerTiming.h"
#include "screens/DynamicTranslator.h"

#include <QJsonArray>
#include <QNetworkAccessManager>
#include <QNetworkReply>

namespace {

// Takes the answers that a screen would take.
class Reader final : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void browseAnswer(int responseId, QJsonValue v) { answers.insert(responseId, v); }
    Q_INVOKABLE void searchAnswer(QJsonValue v) { found = v; }

    QHash<int, QJsonValue> answers;
    QJsonValue found = QJsonValue::Undefined;
};

const QStringList titles{"Cast Off"_s,       "Gulls"_s,    "Open Water"_s, "Rafters"_s,
                         "Dust and Light"_s, "Skylight"_s, "Übermorgen"_s, "Große Straße"_s};

} // namespace

namespace {

// The client's window in front of the real server.
class Listener final
{
public:
    explicit Listener(const MopidyServer &server)
    {
        DeviceState state = client.device.state();
        state.sources[0].address = server.host();
        state.sources[0].port = server.port();
        client.device.setState(state);
    }

    // From the outputs to the player by the cover of what plays.
    bool openPlayer(const QString &title)
    {
        const auto plays = [&] { return !client.texts().filter(title).isEmpty(); };
        if (!client.showOutputs() || !QTest::qWaitFor(plays))
            return false;
        client.click({50, 110});
        return shows(title) && client.tab() == 1;
    }

    bool shows(const QString &text) const
    {
        return QTest::qWaitFor([&] { return client.showsText(text); });
    }

    bool clickThrough(const QStringList &texts)
    {
        return std::all_of(texts.begin(), texts.end(),
                           [&](const QString &text) { return client.clickOn(text); });
    }

    // Of the row with that title, whose picture has come.
    bool chooseFromMenu(const QString &row, const QStringList &texts)
    {
        if (!shows(row))
            return false;
        client.click({420, int(client.itemWithText(row)->mapToScene({}).y()) + 40});
        return clickThrough(texts) && QTest::qWaitFor([&] { return client.item("MoreMenu"_s)->y() >= 640; });
    }

    ClientWindow client;
};

} // namespace

/**
 * The music player's client on a real server: what it asks for is what that server answers, and the mirror is what
 * it plays. One server and one client for all functions; each begins with an empty queue.
 */
class TestMopidy final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void filtersAreItsServices();
    void browsesToATrack();
    void looksUpTracks();
    void picturesDownload();
    void playsAndPauses();
    void nextAndPrevious();
    void shuffleAndRepeat();
    void queueIsTheTracklist();
    void removesFromTheQueue();
    void replacesTheQueue();
    void playlistFromTheQueue();
    void playlistGrowsAndPlays();
    void searches_data();
    void searches();
    void listensByClicks();

    // What goes wrong
    void playlistWithAnAlbum();
    void serverGoesAndComesBack();

private:
    QJsonArray answerTo(int id);
    QJsonArray browse(const QString &uri)
    {
        return answerTo(m_player.actionBrowse(uri, &m_reader, "browseAnswer"));
    }
    QStringList allTracks();
    void queueTracks(int count);
    QStringList queueTitles();
    QStringList playlistNames();
    bool isPlaying(const QString &title) const;

    MopidyServer m_server;
    HalvoraPlayer m_player;
    Reader m_reader;
};

void TestMopidy::initTestCase()
{
    if (!MopidyServer::isInstalled())
        QSKIP("Mopidy is not installed, so nothing here was tested on a real server");
    DynamicTranslator::loadTranslations();
    PlayerTiming::current().tick = 100;
    QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
    m_player.setIpAddress(m_server.host());
    m_player.setPort(m_server.port());
    m_player.startConnection();
    QTRY_VERIFY(!m_player.filters().isEmpty());
}

void TestMopidy::init()
{
    m_player.actionClearQueue();
    QTRY_VERIFY(m_player.queueTlid().isEmpty());
    QTRY_COMPARE(m_player.playPause(), int(HalvoraPlayer::Stopped));
}

QJsonArray TestMopidy::answerTo(int id)
{
    if (!QTest::qWaitFor([&] { return m_reader.answers.contains(id); }))
        return {};
    return m_reader.answers.take(id).toArray();
}

QStringList TestMopidy::allTracks()
{
    QStringList uris;
    const QJsonArray rows = browse("local:directory?type=track"_s);
    for (const QString &title : titles) {
        for (const QJsonValue &row : rows) {
            if (row.toObject().value("name"_s).toString() == title)
                uris.append(row.toObject().value("uri"_s).toString());
        }
    }
    return uris;
}

void TestMopidy::queueTracks(int count)
{
    m_player.actionPlayAdd(allTracks().mid(0, count), -1, false);
    QTRY_COMPARE(m_player.queueTlid().size(), count);
}

QStringList TestMopidy::queueTitles()
{
    QStringList names;
    QQmlListProperty<Song> queue = m_player.queue();
    for (int i = 0; i < queue.count(&queue); ++i)
        names.append(queue.at(&queue, i)->name());
    return names;
}

QStringList TestMopidy::playlistNames()
{
    QStringList names;
    QQmlListProperty<PlayerItem> playlists = m_player.playlists();
    for (int i = 0; i < playlists.count(&playlists); ++i)
        names.append(playlists.at(&playlists, i)->name());
    return names;
}

bool TestMopidy::isPlaying(const QString &title) const
{
    return m_player.playPause() == HalvoraPlayer::Playing && m_player.currentSong()
        && m_player.currentSong()->name() == title;
}

void TestMopidy::filtersAreItsServices()
{
    QCOMPARE(m_player.filters().first(), "all"_s);
    for (const QString &service : {"local"_s, "m3u"_s})
        QVERIFY(m_player.filters().contains(service));
    for (const QString &transport : {"http"_s, "https"_s, "file"_s, "rtsp"_s})
        QVERIFY(!m_player.filters().contains(transport));
    QCOMPARE(m_player.filterTitles().at(m_player.filters().indexOf("m3u"_s)), "Local playlists"_s);
}

void TestMopidy::browsesToATrack()
{
    const auto uriOf = [](const QJsonArray &rows, const QString &name, const QString &type) {
        for (const QJsonValue &row : rows) {
            const QJsonObject object = row.toObject();
            if (object.value("name"_s) == name && object.value("type"_s) == type)
                return object.value("uri"_s).toString();
        }
        return QString();
    };
    const QString local = uriOf(browse({}), "Local media"_s, "directory"_s);
    const QString albums = uriOf(browse(local), "Albums"_s, "directory"_s);
    const QString album = uriOf(browse(albums), "Zimt & Öl"_s, "album"_s);
    QVERIFY(uriOf(browse(album), "Große Straße"_s, "track"_s).startsWith("local:track:"_s));
}

void TestMopidy::looksUpTracks()
{
    const QStringList uris = allTracks();
    QCOMPARE(uris.size(), titles.size());
    const int id = m_player.actionLookup(uris, &m_reader, "browseAnswer");
    QTRY_VERIFY(m_reader.answers.contains(id));
    const QJsonObject tracks = m_reader.answers.take(id).toObject();
    for (int i = 0; i < uris.size(); ++i)
        QCOMPARE(tracks.value(uris.at(i)).toArray().first().toObject().value("name"_s).toString(),
                 titles.at(i));
}

void TestMopidy::picturesDownload()
{
    const QString uri = allTracks().first();
    const int id = m_player.actionLookupImages({uri}, &m_reader, "browseAnswer");
    QTRY_VERIFY(m_reader.answers.contains(id));
    const QJsonArray pictures = m_reader.answers.take(id).toObject().value(uri).toArray();
    QVERIFY(!pictures.isEmpty());
    QNetworkAccessManager manager;
    const QUrl address(pictures.first().toObject().value("uri"_s).toString());
    const QScopedPointer<QNetworkReply> reply(manager.get(QNetworkRequest(address)));
    QTRY_VERIFY(reply->isFinished());
    QCOMPARE(reply->error(), QNetworkReply::NoError);
    QCOMPARE(QImage::fromData(reply->readAll()).size(), QSize(300, 300));
}

void TestMopidy::playsAndPauses()
{
    queueTracks(2);
    QSignalSpy pictures(&m_player, &HalvoraPlayer::currentSongImageChanged);
    m_player.actionPlay();
    QTRY_VERIFY(isPlaying("Cast Off"_s));
    QCOMPARE(m_player.currentSong()->duration(), 34);
    QCOMPARE(m_player.currentSong()->artistsString(), "Lena Aldous"_s);
    QCOMPARE(m_player.currentTlid(), m_player.queueTlid().first());
    QTRY_VERIFY(m_player.currentSong()->currTime() >= 2);
    QTRY_COMPARE(pictures.count(), 1);
    QVERIFY(m_player.currentSong()->mediumImgPath().startsWith("http://127.0.0.1:"_s));
    m_player.actionPause();
    QTRY_COMPARE(m_player.playPause(), int(HalvoraPlayer::Paused));
    m_player.actionPlay();
    QTRY_VERIFY(isPlaying("Cast Off"_s));
}

void TestMopidy::nextAndPrevious()
{
    queueTracks(3);
    m_player.actionPlayTrack(m_player.queueTlid().at(1));
    QTRY_VERIFY(isPlaying("Gulls"_s) && m_player.currentSong()->currTime() > 0);
    m_player.actionNext();
    QTRY_VERIFY(isPlaying("Open Water"_s) && m_player.currentSong()->currTime() > 0);
    m_player.actionPrevious();
    QTRY_VERIFY(isPlaying("Gulls"_s));
    QCOMPARE(m_player.currentTlid(), m_player.queueTlid().at(1));
}

void TestMopidy::shuffleAndRepeat()
{
    for (const bool wanted : {true, false}) {
        m_player.actionShuffle();
        QTRY_COMPARE(m_player.shuffle(), wanted);
        m_player.actionRepeat();
        QTRY_COMPARE(m_player.repeat(), wanted);
    }
}

void TestMopidy::queueIsTheTracklist()
{
    queueTracks(2);
    m_player.actionPlayAdd({allTracks().at(5)}, 1,
                           false); // in the middle there, at the end by its number here
    QTRY_COMPARE(queueTitles(), (QStringList{"Cast Off"_s, "Gulls"_s, "Skylight"_s}));
    const QList<int> tlids = m_player.queueTlid();
    QVERIFY(std::is_sorted(tlids.begin(), tlids.end()));
    QQmlListProperty<Song> queue = m_player.queue();
    QTRY_VERIFY(queue.at(&queue, 0)->smallImgPath().startsWith("http://127.0.0.1:"_s));
}

void TestMopidy::removesFromTheQueue()
{
    queueTracks(3);
    m_player.actionRemoveTrackFromQueue(1);
    QTRY_COMPARE(queueTitles(), (QStringList{"Cast Off"_s, "Open Water"_s}));
}

void TestMopidy::replacesTheQueue()
{
    queueTracks(1);
    m_player.actionResetQueueWithUris(allTracks().mid(3, 2));
    QTRY_COMPARE(queueTitles(), (QStringList{"Rafters"_s, "Dust and Light"_s}));
    QTRY_VERIFY(isPlaying("Rafters"_s));
}

void TestMopidy::playlistFromTheQueue()
{
    queueTracks(3);
    m_player.actionCreatePlaylist("Three/of them"_s, true);
    QTRY_VERIFY(playlistNames().contains("Three|of them"_s));
    const QString uri = "m3u:Three%7Cof%20them.m3u8"_s;
    QTRY_COMPARE(m_player.getPlaylistName(uri), "Three|of them"_s);
    QTRY_COMPARE(answerTo(m_player.actionBrowsePlaylist(uri, &m_reader, "browseAnswer")).size(), 3);
}

void TestMopidy::playlistGrowsAndPlays()
{
    m_player.actionCreatePlaylist("Evening"_s, false);
    QTRY_VERIFY(playlistNames().contains("Evening"_s));
    const QString uri = "m3u:Evening.m3u8"_s;
    PlayerItem track;
    track.setUri(allTracks().at(4));
    track.setName(titles.at(4));
    track.setType("track"_s);
    m_player.actionEditPlaylistWithUris(uri, {&track});
    QTRY_COMPARE(answerTo(m_player.actionBrowsePlaylist(uri, &m_reader, "browseAnswer")).size(), 1);
    m_player.actionOpenPlaylistWithUri(uri);
    QTRY_VERIFY(isPlaying("Dust and Light"_s));
    m_player.actionAddPlaylistWithUri(uri);
    QTRY_COMPARE(queueTitles(), (QStringList{"Dust and Light"_s, "Dust and Light"_s}));
}

void TestMopidy::searches_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("everywhere") << "Skylight"_s << QString() << QStringList{"Skylight"_s};
    QTest::newRow("one service") << "Gulls"_s
                                 << "local"_s << QStringList{"Gulls"_s};
    QTest::newRow("not in that one") << "Gulls"_s
                                     << "m3u"_s << QStringList();
    QTest::newRow("beyond ASCII") << "Straße"_s
                                  << "local"_s << QStringList{"Große Straße"_s};
}

void TestMopidy::searches()
{
    QFETCH(QString, text);
    QFETCH(QString, filter);
    QFETCH(QStringList, names);
    m_reader.found = QJsonValue::Undefined;
    m_player.actionSearch(text, filter, &m_reader, "searchAnswer");
    QTRY_VERIFY(m_reader.found.isArray());
    QStringList found;
    const QJsonArray results = m_reader.found.toArray();
    for (const QJsonValue &result : results) {
        const QJsonArray tracks = result.toObject().value("tracks"_s).toArray();
        for (const QJsonValue &track : tracks)
            found.append(track.toObject().value("name"_s).toString());
    }
    QCOMPARE(found, names);
}

// This server ends the connection over an album among the tracks of a playlist; the client comes to rest again.
// What a person does with the library, from the library's root to what is heard.
void TestMopidy::listensByClicks()
{
    m_player.actionCreatePlaylist("Trip"_s, false);
    QTRY_VERIFY(playlistNames().contains("Trip"_s));
    queueTracks(1);
    m_player.actionPlay();
    QTRY_VERIFY(isPlaying("Cast Off"_s));
    Listener listener(m_server);
    ClientWindow &client = listener.client;
    QVERIFY(listener.openPlayer("Cast Off"_s));

    client.click({40, 115});
    QVERIFY(listener.clickThrough({"Local media"_s, "Albums"_s, "Zimt & Öl"_s}));
    QVERIFY(listener.shows("Große Straße"_s));
    const auto picture = [&] {
        const QQuickItem *label = client.itemWithText("Große Straße"_s);
        const QQuickItem *cell = label;
        while (cell && !cell->property("imgSource").isValid())
            cell = cell->parentItem();
        return cell ? cell->property("imgSource").toString() : QString();
    };
    QTRY_VERIFY(picture().startsWith("http://127.0.0.1:"_s));
    QVERIFY(client.clickOn("Große Straße"_s));
    QTRY_VERIFY(isPlaying("Große Straße"_s));
    QVERIFY(listener.chooseFromMenu("Übermorgen"_s, {"Add All to Queue"_s}));
    QTRY_COMPARE(queueTitles(),
                 (QStringList{"Cast Off"_s, "Große Straße"_s, "Übermorgen"_s, "Große Straße"_s}));
    QVERIFY(listener.chooseFromMenu("Übermorgen"_s, {"Add All to Playlist"_s, "Trip"_s}));
    client.click({60, 22}); // back to the albums
    QVERIFY(listener.chooseFromMenu("Zimt & Öl"_s, {"Add to Playlist"_s, "Trip"_s}));
    client.click({415, 22});

    client.click({410, 115});
    QVERIFY(listener.shows("Show filters"_s));
    client.click({150, 64});
    client.type("gulls"_s);
    QVERIFY(client.clickOn("Search"_s));
    QVERIFY(listener.chooseFromMenu("Gulls"_s, {"Play Now \"Gulls\""_s}));
    QTRY_VERIFY(isPlaying("Gulls"_s));
    client.click({415, 22});

    client.click({105, 603});
    QVERIFY(client.clickOn("Trip"_s));
    QVERIFY(listener.shows("Übermorgen"_s));
    QCOMPARE(client.texts().count("Übermorgen"_s), 2);
}

void TestMopidy::playlistWithAnAlbum()
{
    m_player.actionCreatePlaylist("Odd"_s, false);
    QTRY_VERIFY(playlistNames().contains("Odd"_s));
    PlayerItem album;
    album.setUri("local:album:none"_s);
    album.setType("album"_s);
    const int before = m_player.actionBrowse({}, nullptr, "");
    m_player.actionEditPlaylistWithUris("m3u:Odd.m3u8"_s, {&album});
    // Numbers begin again on a new connection.
    QTRY_VERIFY(m_player.actionBrowse({}, nullptr, "") < before);
    QTRY_VERIFY(!browse({}).isEmpty());
}

void TestMopidy::serverGoesAndComesBack()
{
    queueTracks(2);
    m_player.actionPlay();
    QTRY_VERIFY(isPlaying("Cast Off"_s));
    m_server.stop();
    QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
    // The new server has an empty queue and plays nothing: the mirror says so at the next full poll.
    QTRY_VERIFY_WITH_TIMEOUT(m_player.queueTlid().isEmpty(), 20000);
    QTRY_COMPARE(m_player.playPause(), int(HalvoraPlayer::Stopped));
    queueTracks(1);
    m_player.actionPlay();
    QTRY_VERIFY(isPlaying("Cast Off"_s));
}

HALVORA_SUITE_MAIN(TestMopidy)

#include "tst_mopidy.moc"
