// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ClientWindow.h"
#include "support/Suite.h"

#include "player/PlayerTiming.h"
#include "simulator/MopidyModels.h"

#include <QJsonDocument>

/**
 * Library, search and playlists as a person uses them: clicks on a real window, and what then reaches the device and
 * the music server, message by message. The queue holds two tracks of other albums, the first of which plays.
 */
class LibraryTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    // What works
    void walksFromTheRootToATrack();
    void barNamesTheScreens();
    void menuOfATrack_data();
    void menuOfATrack();
    void menuOfAnAlbum_data();
    void menuOfAnAlbum();
    void itemsJoinAPlaylist_data();
    void itemsJoinAPlaylist();
    void searchShowsFiveOfAKind();
    void searchInOneService();
    void tracksOfASearch();
    void playlistIsOpened();
    void menuOfAPlaylist_data();
    void menuOfAPlaylist();
    void playlistIsNamed_data();
    void playlistIsNamed();
    void playlistIsDeleted();
    void playlistIsTiedToASlot();
    void playlistsFollowTheServer();
};

namespace {

const QPoint libraryButton(40, 115);
const QPoint searchButton(410, 115);
const QPoint playlistsButton(105, 603);
const QPoint rightButton(415, 22); // of the bar: "Close"
const QPoint backButton(60, 22);
constexpr int menuButton = 420; // of a row, from the left

const int album = 10; // its first track, in the catalogue

QString call(const QString &method, const QJsonObject &parameters = {})
{
    return method + QString::fromUtf8(QJsonDocument(parameters).toJson(QJsonDocument::Compact));
}

QString ofUri(const QString &method, const QString &uri)
{
    return call(method, {{"uri"_s, uri}});
}

QString ofUris(const QString &method, const QStringList &uris)
{
    return call(method, {{"uris"_s, QJsonArray::fromStringList(uris)}});
}

QString add(const QStringList &uris, int position)
{
    return call("tracklist.add"_s,
                {{"uris"_s, QJsonArray::fromStringList(uris)}, {"at_position"_s, position}});
}

QString play(int tlid)
{
    return call("playback.play"_s, {{"tlid"_s, tlid}});
}

const QString askPosition = call("tracklist.index"_s);

// A client whose player screen stands, and the library behind it.
class Listener final
{
public:
    bool start()
    {
        if (!client.showPlayer())
            return false;
        client.forgetRequests();
        client.forgetCommands();
        return true;
    }

    CatalogueTrack track(int position) const { return client.server.catalogue().track(position); }

    QStringList uris(int from, int to) const // of tracks
    {
        QStringList uris;
        for (int position = from; position < to; ++position)
            uris.append(track(position).uri);
        return uris;
    }

    // The requests of the step that was just made, all of them and no more.
    bool sent(const QStringList &expected)
    {
        const bool came = QTest::qWaitFor([&] { return client.requests().size() >= expected.size(); });
        QTest::qWait(0);
        const bool right = came && client.requests() == expected;
        if (!right)
            qInfo() << "sent" << client.requests() << "expected" << expected;
        client.forgetRequests();
        return right;
    }

    bool openAlbums()
    {
        client.click(libraryButton);
        return client.clickOn("Local media"_s) && client.clickOn("Albums"_s)
            && shows(track(album).albumName);
    }

    bool openAlbum()
    {
        if (!openAlbums() || !client.clickOn(track(album).albumName) || !shows(details(album)))
            return false;
        client.forgetRequests();
        return true;
    }

    // What a row says of a track once its details are there.
    QString details(int position) const
    {
        QStringList artists;
        for (const CatalogueArtist &artist : track(position).artists)
            artists.append(artist.name);
        return track(position).albumName + "\n"_s + artists.join(", "_s);
    }

    bool shows(const QString &text) const
    {
        return QTest::qWaitFor([&] { return client.showsText(text); });
    }

    bool openMenuOf(const QString &row)
    {
        const QQuickItem *label = client.itemWithText(row);
        if (!label)
            return false;
        client.click({menuButton, int(label->mapToScene({}).y()) + 40});
        return isStill("MoreMenu"_s);
    }

    // Whether a panel has slid in.
    bool isStill(const QString &type)
    {
        return QTest::qWaitFor([&] {
            const QQuickItem *panel = client.item(type);
            return panel && panel->y() == 0 && panel->x() == 0;
        });
    }

    bool openPlaylists()
    {
        client.server.playlists()->put("Morning"_s, uris(30, 33));
        client.server.playlists()->put("Evening"_s, uris(33, 35));
        client.device.setPlaylistEntries({{4, "Preset one"_s, {}}, {9, "Preset two"_s, playlistUri(1)}});
        client.click(playlistsButton);
        if (!isStill("PlaylistsNavPopup"_s) || !shows("Preset two"_s))
            return false;
        client.forgetRequests();
        return true;
    }

    QString playlistUri(int which) const
    {
        return client.server.playlists()->playlists().at(which).uri;
    }

    bool openPlaylistMenu()
    {
        return openMenuOf("Morning"_s) || isStill("PlaylistMoreMenu"_s);
    }

    ClientWindow client;
};

} // namespace

void LibraryTest::initTestCase()
{
    PlayerTiming::current() = {50, 25, 50};
}

void LibraryTest::walksFromTheRootToATrack()
{
    Listener listener;
    QVERIFY(listener.start());
    ClientWindow &client = listener.client;
    client.click(libraryButton);
    QVERIFY(listener.sent({call("library.browse"_s, {{"uri"_s, QJsonValue()}})}));
    QVERIFY(client.clickOn("Local media"_s));
    QVERIFY(listener.sent({ofUri("library.browse"_s, "local:directory"_s)}));
    QVERIFY(client.clickOn("Albums"_s));
    QStringList albums;
    for (int position = 0; position < 200; position += Catalogue::tracksPerAlbum)
        albums.append(listener.track(position).albumUri);
    QVERIFY(listener.sent({ofUri("library.browse"_s, "local:directory?type=album"_s),
                           ofUris("library.lookup"_s, albums), ofUris("library.get_images"_s, albums)}));
    QVERIFY(client.clickOn(listener.track(album).albumName));
    const QStringList tracks = listener.uris(album, album + 10);
    QVERIFY(listener.sent({ofUri("library.browse"_s, listener.track(album).albumUri),
                           ofUris("library.lookup"_s, tracks), ofUris("library.get_images"_s, tracks)}));
    QVERIFY(listener.shows(listener.details(album + 4)));
    QVERIFY(client.clickOn(listener.track(album + 4).name));
    QVERIFY(listener.sent({askPosition, add({tracks.at(4)}, 1), play(3)}));
    QTRY_COMPARE(client.server.playback()->current().track.uri, tracks.at(4));
}

void LibraryTest::barNamesTheScreens()
{
    Listener listener;
    QVERIFY(listener.start());
    listener.client.click(libraryButton);
    const auto bar = [&] {
        QStringList bar;
        for (const QString &text : listener.client.texts()) {
            if (listener.client.itemWithText(text)->mapToScene({}).y() < 40)
                bar.append(text);
        }
        return bar;
    };
    QVERIFY(listener.shows("Local media"_s));
    QCOMPARE(bar(), QStringList{"Close"_s});
    QVERIFY(listener.client.clickOn("Local media"_s));
    QTRY_COMPARE(bar(), (QStringList{"Music"_s, "Local media"_s, "Close"_s}));
    listener.client.click(backButton);
    QTRY_COMPARE(bar(), (QStringList{"Music"_s, "Close"_s}));
    listener.client.click(rightButton);
    QTRY_VERIFY(!listener.client.showsText("Local media"_s));
}

void LibraryTest::menuOfATrack_data()
{
    QTest::addColumn<QString>("row"); // its beginning
    QTest::addColumn<bool>("all");
    QTest::addColumn<bool>("next");
    QTest::addColumn<bool>("plays");
    QTest::newRow("play it") << "Play Now \""_s << false << true << true;
    QTest::newRow("play all from it") << "Play All Now"_s << true << true << true;
    QTest::newRow("play it next") << "Play Track Next"_s << false << true << false;
    QTest::newRow("queue it") << "Add to Queue"_s << false << false << false;
    QTest::newRow("queue all from it") << "Add All to Queue"_s << true << false << false;
}

void LibraryTest::menuOfATrack()
{
    QFETCH(QString, row);
    QFETCH(bool, all);
    QFETCH(bool, next);
    QFETCH(bool, plays);
    Listener listener;
    QVERIFY(listener.start());
    QVERIFY(listener.openAlbum());
    const QString name = listener.track(album + 3).name;
    QVERIFY(listener.openMenuOf(name));
    QVERIFY(listener.client.clickOn(row.endsWith('"'_c) ? row + name + "\""_s : row));
    const QStringList uris = listener.uris(album + 3, all ? album + 10 : album + 4);
    QStringList expected{next ? add(uris, 1) : ofUris("tracklist.add"_s, uris)};
    if (next)
        expected.prepend(askPosition);
    if (plays)
        expected.append(play(3));
    QVERIFY(listener.sent(expected));
}

void LibraryTest::menuOfAnAlbum_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QStringList>("requests"); // by name
    QTest::newRow("play") << "Play Now"_s << QStringList{"index"_s, "add"_s, "play"_s};
    QTest::newRow("next") << "Play Track Next"_s << QStringList{"index"_s, "add"_s};
    QTest::newRow("queue") << "Add to Queue"_s << QStringList{"add"_s};
}

void LibraryTest::menuOfAnAlbum()
{
    QFETCH(QString, row);
    QFETCH(QStringList, requests);
    Listener listener;
    QVERIFY(listener.start());
    QVERIFY(listener.openAlbums());
    const CatalogueTrack first = listener.track(album);
    QVERIFY(listener.shows(first.artists.constFirst().name));
    listener.client.forgetRequests();
    QVERIFY(listener.openMenuOf(first.albumName));
    QVERIFY(listener.client.clickOn(row == "Play Now"_s ? row + " \""_s + first.albumName + "\""_s : row));
    QStringList expected;
    const bool next = requests.contains("index"_s);
    if (next)
        expected.append(askPosition);
    expected.append(next ? add({first.albumUri}, 1) : ofUris("tracklist.add"_s, {first.albumUri}));
    if (requests.contains("play"_s))
        expected.append(play(3));
    QVERIFY(listener.sent(expected));
    QTRY_COMPARE(listener.client.server.tracklist()->entries().size(), 12);
}

void LibraryTest::itemsJoinAPlaylist_data()
{
    QTest::addColumn<bool>("ofAlbum");
    QTest::addColumn<QString>("row");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("a track") << false << "Add to Playlist"_s << album + 2 << album + 3;
    QTest::newRow("all from a track") << false << "Add All to Playlist"_s << album + 2 << album + 10;
    QTest::newRow("an album") << true << "Add to Playlist"_s << album << album + 10;
}

void LibraryTest::itemsJoinAPlaylist()
{
    QFETCH(bool, ofAlbum);
    QFETCH(QString, row);
    QFETCH(int, from);
    QFETCH(int, to);
    Listener listener;
    PlaylistShelf *shelf = listener.client.server.playlists();
    shelf->put("Morning"_s, listener.uris(30, 33));
    const QString uri = shelf->put("Evening"_s, listener.uris(40, 41));
    QVERIFY(listener.start());
    QVERIFY(ofAlbum ? listener.openAlbums() : listener.openAlbum());
    const CatalogueTrack track = listener.track(from);
    QVERIFY(listener.openMenuOf(ofAlbum ? track.albumName : track.name));
    QVERIFY(listener.client.clickOn(row));
    QVERIFY(listener.shows("Evening"_s));
    QVERIFY(listener.isStill("PlaylistChooser"_s) || true);
    QVERIFY(listener.client.clickOn("Evening"_s));
    QTRY_COMPARE(shelf->find(uri)->trackUris, listener.uris(40, 41) + listener.uris(from, to));
    QCOMPARE(shelf->playlists().at(0).trackUris, listener.uris(30, 33));
}

HALVORA_SUITE_MAIN(LibraryTest)
#include "tst_library.moc"
