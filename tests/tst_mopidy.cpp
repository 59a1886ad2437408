// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Listed.h"
#include "support/Listener.h"
#include "support/MopidyServer.h"
#include "support/Suite.h"

#include "player/HalvoraPlayer.h"
#include "player/PlayerTiming.h"
#include "screens/DynamicTranslator.h"

#include <QJsonArray>

namespace {

constexpr int patience = 20000; // milliseconds: a real server, on a machine that may build meanwhile

// Takes the answers that a screen would take.
class Reader final : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void browseAnswer(int responseId, QJsonValue v) { answers.insert(responseId, v); }

    QHash<int, QJsonValue> answers;
};

const QStringList titles{"Cast Off"_s,       "Gulls"_s,    "Open Water"_s, "Rafters"_s,
                         "Dust and Light"_s, "Skylight"_s, "Übermorgen"_s, "Große Straße"_s};

// Chooses from the menu of the row with that title, when it has come.
bool chooseFromMenu(Listener *listener, const QString &row, const QStringList &texts)
{
    ClientWindow &client = listener->client;
    return listener->shows(row) && listener->openMenuOf(row)
        && std::all_of(texts.begin(), texts.end(), [&](const QString &text) { return client.clickOn(text); })
        && Waiting::comes([&] { return client.item("MoreMenu"_s)->y() >= 640; });
}

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

    void playsAndPauses();
    void shuffleAndRepeat();
    void queueIsTheTracklist();
    void playlistFromTheQueue();
    void playlistGrowsAndPlays();
    void listensByClicks();

    // What goes wrong
    void playlistWithAnAlbum();

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
    bool resumes(const QString &title);

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
    for (const Song *song : listed(m_player.queue()))
        names.append(song->name());
    return names;
}

QStringList TestMopidy::playlistNames()
{
    QStringList names;
    for (const PlayerItem *playlist : listed(m_player.playlists()))
        names.append(playlist->name());
    return names;
}

bool TestMopidy::isPlaying(const QString &title) const
{
    return m_player.playPause() == HalvoraPlayer::Playing && m_player.currentSong()
        && m_player.currentSong()->name() == title;
}

// Soon after a pause this server may take its own audio's late word of it for another pause, behind the answer to the
// request to play: whoever listens presses again then. The first request has to be heard all the same.
bool TestMopidy::resumes(const QString &title)
{
    const int from = m_player.currentSong()->currTime();
    bool heard = false;
    const auto pressing = connect(&m_player, &HalvoraPlayer::playPauseChanged, this, [&] {
        heard = heard || m_player.playPause() == HalvoraPlayer::Playing;
        if (heard && m_player.playPause() == HalvoraPlayer::Paused)
            m_player.actionPlay();
    });
    m_player.actionPlay();
    const bool goesOn = QTest::qWaitFor(
        [&] { return isPlaying(title) && m_player.currentSong()->currTime() > from + 1; }, patience);
    disconnect(pressing);
    return goesOn && heard;
}

void TestMopidy::playsAndPauses()
{
    queueTracks(2);
    m_player.actionPlay();
    QTRY_VERIFY_WITH_TIMEOUT(isPlaying("Cast Off"_s), patience);
    QCOMPARE(m_player.currentSong()->duration(), 34);
    QCOMPARE(m_player.currentSong()->artistsString(), "Lena Aldous"_s);
    QCOMPARE(m_player.currentTlid(), m_player.queueTlid().first());
    QTRY_VERIFY(m_player.currentSong()->currTime() >= 2);
    QTRY_VERIFY(m_player.currentSong()->mediumImgPath().startsWith("http://127.0.0.1:"_s));
    m_player.actionPause();
    QTRY_COMPARE(m_player.playPause(), int(HalvoraPlayer::Paused));
    QVERIFY(resumes("Cast Off"_s));
    m_player.actionNext();
    QTRY_VERIFY_WITH_TIMEOUT(isPlaying("Gulls"_s) && m_player.currentSong()->currTime() > 0, patience);
    m_player.actionPrevious();
    QTRY_VERIFY_WITH_TIMEOUT(isPlaying("Cast Off"_s), patience);
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
    // In the middle there, at the end by its number here.
    m_player.actionPlayAdd({allTracks().at(5)}, 1, false);
    QTRY_COMPARE(queueTitles(), (QStringList{"Cast Off"_s, "Gulls"_s, "Skylight"_s}));
    QTRY_VERIFY(listed(m_player.queue()).first()->smallImgPath().startsWith("http://127.0.0.1:"_s));
    m_player.actionRemoveTrackFromQueue(1);
    QTRY_COMPARE(queueTitles(), (QStringList{"Cast Off"_s, "Skylight"_s}));
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
    QTRY_VERIFY_WITH_TIMEOUT(isPlaying("Dust and Light"_s), patience);
    m_player.actionAddPlaylistWithUri(uri);
    QTRY_COMPARE(queueTitles(), (QStringList{"Dust and Light"_s, "Dust and Light"_s}));
}

// What a person does with the library, from the library's root to what is heard.
void TestMopidy::listensByClicks()
{
    m_player.actionCreatePlaylist("Trip"_s, false);
    QTRY_VERIFY(playlistNames().contains("Trip"_s));
    queueTracks(1);
    m_player.actionPlay();
    QTRY_VERIFY_WITH_TIMEOUT(isPlaying("Cast Off"_s), patience);
    Listener listener;
    ClientWindow &client = listener.client;
    DeviceState state = client.device.state();
    state.sources[0].address = m_server.host();
    state.sources[0].port = m_server.port();
    client.device.setState(state);
    QVERIFY(client.showOutputs());
    QTRY_VERIFY(!client.texts().filter("Cast Off"_s).isEmpty());
    client.click({50, 110}); // the cover of what plays

    QVERIFY(listener.shows("Cast Off"_s));
    client.click(Listener::libraryButton);
    QVERIFY(client.clickOn("Local media"_s) && client.clickOn("Albums"_s) && client.clickOn("Zimt & Öl"_s));
    QVERIFY(listener.shows("Große Straße"_s));
    QVERIFY(client.clickOn("Große Straße"_s));
    QTRY_VERIFY_WITH_TIMEOUT(isPlaying("Große Straße"_s), patience);
    QVERIFY(chooseFromMenu(&listener, "Übermorgen"_s, {"Add All to Queue"_s}));
    QTRY_COMPARE(queueTitles(),
                 (QStringList{"Cast Off"_s, "Große Straße"_s, "Übermorgen"_s, "Große Straße"_s}));
    QVERIFY(chooseFromMenu(&listener, "Übermorgen"_s, {"Add All to Playlist"_s, "Trip"_s}));
    client.click(Listener::rightButton);

    QVERIFY(listener.search("gulls"_s));
    QVERIFY(chooseFromMenu(&listener, "Gulls"_s, {"Play Now \"Gulls\""_s}));
    QTRY_VERIFY_WITH_TIMEOUT(isPlaying("Gulls"_s), patience);
    client.click(Listener::rightButton);

    client.click(Listener::playlistsButton);
    QVERIFY(client.clickOn("Trip"_s));
    QVERIFY(listener.shows("Übermorgen"_s));
}

// This server ends the connection over an album among the tracks of a playlist; the client comes to rest again.
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

HALVORA_SUITE_MAIN(TestMopidy)

#include "tst_mopidy.moc"
