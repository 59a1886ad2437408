// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Listener.h"
#include "support/Rows.h"
#include "support/Suite.h"

#include "player/PlayerTiming.h"
#include "simulator/MopidyModels.h"

using namespace Requests;

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
    void menusOfTheLibrary_data();
    void menusOfTheLibrary();
    void itemsJoinAPlaylist_data();
    void itemsJoinAPlaylist();
    void searchShowsFiveOfAKind();
    void searchInOneService();
    void tracksOfASearch();
    void playlistIsOpened();
    void playlistsComeOnceHoweverOftenTheyWereOpened();
    void menuOfAPlaylist();
    void menuOfAPlaylistOnALowScreen();
    void playlistIsMade();
    void playlistIsRenamed();
    void playlistIsDeleted();
    void playlistIsTiedToASlot();
};

// In the dialogs, whose box of 300 by 200 stands in the middle.
static QPoint okOf(const QQuickItem *dialog)
{
    return dialog->mapToScene({dialog->width() / 2 - 75, dialog->height() / 2 + 75}).toPoint();
}

static void enterName(ClientWindow *client, const QString &name)
{
    const QQuickItem *dialog = client->item("PlaylistSaveDialog"_s);
    client->click(dialog->mapToScene({dialog->width() / 2, dialog->height() / 2 + 30}).toPoint());
    client->type(name);
    client->click(okOf(dialog));
}

static constexpr int album = 10; // its first track, in the catalogue

void LibraryTest::initTestCase()
{
    PlayerTiming::current() = {50, 25, 50};
}

void LibraryTest::walksFromTheRootToATrack()
{
    PlayingListener listener;
    ClientWindow &client = listener.client;
    client.click(Listener::libraryButton);
    QVERIFY(listener.sent({call("library.browse"_s, {{"uri"_s, QJsonValue()}})}));
    const auto bar = [&] {
        const QQuickItem *bar = client.item("NavigationBar"_s); // that of the playlists waits below
        return bar->property("backText").toString() + "|"_s + bar->property("title").toString();
    };
    QCOMPARE(bar(), "|"_s);
    QVERIFY(client.clickOn("Local media"_s));
    QTRY_COMPARE(bar(), "Music|Local media"_s);
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
    QVERIFY(listener.sent({askPosition(), add({tracks.at(4)}, 1), play(3)}));
    QTRY_COMPARE(client.server.playback()->current().track.uri, tracks.at(4));
}

// Rows of the menus of a track in the middle of an album, and of the album itself.
void LibraryTest::menusOfTheLibrary_data()
{
    // A row, or its beginning where the name stands behind it, and what is added: where, and whether it plays.
    Rows::add("row added"_s, R"(
        ; Play Now " ; next plays
        ; Play All Now ; all next plays
        ; Play Track Next ; next
        ; Add to Queue
        ; Add All to Queue ; all
        album now ; Play Now " ; album next plays
        album next ; Play Track Next ; album next
        album queued ; Add to Queue ; album)"_s);
}

void LibraryTest::menusOfTheLibrary()
{
    QFETCH(QString, row);
    QFETCH(QString, added);
    const bool ofAlbum = added.contains("album"_s);
    const bool next = added.contains("next"_s);
    PlayingListener listener;
    ClientWindow &client = listener.client;
    const CatalogueTrack track = listener.track(album + 3);
    QVERIFY(ofAlbum ? listener.openAlbums(album) && listener.shows(track.artists.constFirst().name)
                    : listener.openAlbum(album));
    client.forgetRequests();
    const QString name = ofAlbum ? track.albumName : track.name;
    QVERIFY(listener.openMenuOf(name));
    QVERIFY(client.clickOn(row.endsWith(QLatin1Char('"')) ? row + name + "\""_s : row));
    const QStringList uris = ofAlbum
        ? QStringList{track.albumUri}
        : listener.uris(album + 3, added.contains("all"_s) ? album + 10 : album + 4);
    QStringList expected{next ? add(uris, 1) : ofUris("tracklist.add"_s, uris)};
    if (next)
        expected.prepend(askPosition());
    if (added.contains("plays"_s))
        expected.append(play(3));
    QVERIFY(listener.sent(expected));
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
    QVERIFY(ofAlbum ? listener.openAlbums(album) : listener.openAlbum(album));
    const CatalogueTrack track = listener.track(from);
    QVERIFY(listener.openMenuOf(ofAlbum ? track.albumName : track.name));
    QVERIFY(listener.client.clickOn(row) && listener.client.clickOn("Evening"_s));
    QTRY_COMPARE(shelf->find(uri)->trackUris, listener.uris(40, 41) + listener.uris(from, to));
    QCOMPARE(shelf->playlists().at(0).trackUris, listener.uris(30, 33));
}

void LibraryTest::searchShowsFiveOfAKind()
{
    PlayingListener listener;
    ClientWindow &client = listener.client;
    client.server.faults().results.insert("core.library.search"_s, listener.results(6));
    QVERIFY(listener.search("Winter"_s));
    QVERIFY(listener.shows(listener.track(album).name));
    QCOMPARE(client.requests().value(0), searchCall("Winter"_s, QJsonObject()));
    const QStringList texts = client.texts();
    QCOMPARE(texts.count("Show more..."_s), 3);
    for (const char *heading : {"Artists", "Albums", "Tracks"})
        QVERIFY2(texts.contains(QString::fromLatin1(heading)), heading);
    QTRY_COMPARE(client.requests().size(), 6); // an artist has pictures alone
    QVERIFY(!texts.contains(listener.track(album + 5).name));

    client.forgetRequests();
    const QQuickItem *tracks = client.itemWithText("Tracks"_s);
    client.click({390, int(tracks->mapToScene({}).y()) + 22});
    QVERIFY(listener.shows(listener.track(album + 5).name));
    QCOMPARE(client.item("NavigationBar"_s)->property("title").toString(), "Tracks"_s);
    QVERIFY(client.clickOn(listener.track(album + 5).name));
    QVERIFY(listener.sent({askPosition(), add(listener.uris(album + 5, album + 6), 1), play(3)}));
}

void LibraryTest::searchInOneService()
{
    PlayingListener listener;
    ClientWindow &client = listener.client;
    client.click(Listener::searchButton);
    QVERIFY(client.clickOn("Search"_s)); // with an empty field
    QVERIFY(listener.sent({}));
    client.click({150, 44 + 20});
    client.type("Winter"_s);
    for (const auto &filter : {qMakePair("Local files"_s, QJsonValue(QJsonArray{"local:"_s})),
                               qMakePair("All services"_s, QJsonValue(QJsonObject()))}) {
        client.forgetRequests();
        QVERIFY(client.clickOn("Show filters"_s) && client.clickOn(filter.first) && listener.closeFilters());
        QVERIFY(client.clickOn("Search"_s));
        QTRY_COMPARE(client.requests().filter("library.search"_s),
                     QStringList{searchCall("Winter"_s, filter.second)});
    }
}

// On the first screen a track plays by its menu alone, and an album leads on.
void LibraryTest::tracksOfASearch()
{
    PlayingListener listener;
    ClientWindow &client = listener.client;
    client.server.faults().results.insert(
        "core.library.search"_s,
        QJsonArray{MopidyModels::searchResult("local:search"_s, {MopidyModels::track(listener.track(album))},
                                              {MopidyModels::album(listener.track(100))}, {})});
    QVERIFY(listener.search("x"_s));
    QVERIFY(listener.shows(listener.details(album)));
    client.forgetRequests();
    QVERIFY(client.clickOn(listener.track(album).name));
    QVERIFY(listener.openMenuOf(listener.track(album).name));
    QVERIFY(client.clickOn("Add to Queue"_s));
    QVERIFY(listener.sent({ofUris("tracklist.add"_s, listener.uris(album, album + 1))}));
    QTRY_VERIFY(client.item("MoreMenu"_s)->y() >= 640);
    QVERIFY(client.clickOn(listener.track(100).albumName));
    QTRY_COMPARE(client.requests().value(0), ofUri("library.browse"_s, listener.track(100).albumUri));
}

void LibraryTest::playlistIsOpened()
{
    PlayingListener listener;
    QVERIFY(listener.openPlaylists());
    QVERIFY(listener.client.clickOn("Morning"_s));
    const QStringList uris = listener.uris(30, 33);
    QVERIFY(listener.sent({ofUri("playlists.get_items"_s, listener.playlistUri(0)),
                           ofUris("library.lookup"_s, uris), ofUris("library.get_images"_s, uris)}));
    QVERIFY(listener.shows(listener.details(31)));
    QVERIFY(!listener.client.showsText("Add"_s));
    QVERIFY(listener.client.clickOn(listener.track(31).name));
    QVERIFY(listener.sent({askPosition(), add({uris.at(1)}, 1), play(3)}));
    listener.client.click(Listener::backButton);
    QVERIFY(listener.shows("Add"_s));
    listener.client.click(Listener::rightButton);
    QTRY_COMPARE(listener.client.item("PlaylistsNavPopup"_s)->y(), 645.0);
}

void LibraryTest::playlistsComeOnceHoweverOftenTheyWereOpened()
{
    PlayingListener listener;
    ClientWindow &client = listener.client;
    for (int i = 0; i < 2; ++i) {
        QVERIFY(listener.openPlaylists());
        client.click(Listener::rightButton);
        QTRY_COMPARE(client.item("PlaylistsNavPopup"_s)->y(), 645.0);
    }
    QVERIFY(listener.openPlaylists());
    const QSignalSpy told(client.item("PlaylistsNavPopup"_s), SIGNAL(currPlayerChanged()));
    const QSignalSpy loaded(client.item("PlaylistRootView"_s), SIGNAL(listViewModelChanged()));
    client.server.playlists()->put("Night"_s, listener.uris(35, 36));
    client.device.broadcast(26);
    QVERIFY(listener.shows("Night"_s));
    QVERIFY(!loaded.isEmpty());
    QCOMPARE(told.size(), 3 * loaded.size());
    for (const int tab : {0, 1})
        client.selectTab(tab);
    QTRY_COMPARE(client.item("PlaylistsNavPopup"_s)->y(), 640.0);
    const QString method = "core.playlists.as_list"_s;
    const auto isAsked = [&] {
        const QList<ReceivedRequest> &requests = client.server.requests();
        return std::any_of(requests.begin(), requests.end(),
                           [&](const ReceivedRequest &request) { return request.method == method; });
    };
    client.server.faults().methods = QStringList{method};
    client.server.faults().noReply = true;     // from here on, no poll brings playlists
    for (int asked = 1; asked <= 2; ++asked) { // and with the second, what was under way has come
        client.forgetRequests();
        client.device.broadcast(26);
        QTRY_VERIFY(isAsked());
    }
    const int before = loaded.size();
    QVERIFY(listener.openPlaylists());
    QCOMPARE(loaded.size(), before + 1); // and once anew when they come on show again
}

void LibraryTest::menuOfAPlaylist()
{
    for (const bool replaces : {true, false}) {
        PlayingListener listener;
        QVERIFY(listener.openPlaylists() && listener.openPlaylistMenu());
        QVERIFY(listener.client.clickOn(replaces ? "Play Now \"Morning\""_s : "Add to Queue"_s));
        QStringList expected{ofUri("playlists.get_items"_s, listener.playlistUri(0))};
        if (replaces)
            expected << call("playback.stop"_s) << call("tracklist.clear"_s);
        expected << ofUris("tracklist.add"_s, listener.uris(30, 33));
        if (replaces)
            expected << play(3);
        QVERIFY(listener.sent(expected));
    }
}

// A phone held sideways: the last rows are reached by scrolling.
void LibraryTest::menuOfAPlaylistOnALowScreen()
{
    PlayingListener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.openPlaylists() && listener.openPlaylistMenu());
    client.view.resize(450, 330);
    QTRY_COMPARE(client.item("PlaylistMoreMenu"_s)->height(), 330.0);
    QTest::mousePress(&client.view, Qt::LeftButton, {}, {200, 300});
    for (int y = 300; y >= 20; y -= 20)
        QTest::mouseMove(&client.view, {200, y});
    QTest::mouseRelease(&client.view, Qt::LeftButton, {}, {200, 20});
    const int lastRow = 330 - 15 - 50;
    QTRY_COMPARE(client.itemWithText("Delete"_s)->mapToScene({}).toPoint().y(), lastRow);
    client.click({200, lastRow + 25});
    QTRY_VERIFY(client.item("PlaylistDeleteDialog"_s));
}

void LibraryTest::playlistIsMade()
{
    for (const QString &name : {"Dinner"_s, QString()}) {
        PlayingListener listener;
        QVERIFY(listener.openPlaylists() && listener.client.clickOn("Add"_s));
        QVERIFY(listener.shows("Create new playlist with name"_s));
        enterName(&listener.client, name);
        QVERIFY(listener.sent({call("playlists.create"_s, {{"name"_s, name}, {"uri_scheme"_s, "m3u"_s}})}));
        QTRY_VERIFY(!listener.client.item("PlaylistSaveDialog"_s));
    }
}

void LibraryTest::playlistIsRenamed()
{
    PlayingListener listener;
    QVERIFY(listener.openPlaylists() && listener.openPlaylistMenu());
    QVERIFY(listener.client.clickOn("Rename"_s));
    QVERIFY(listener.shows("Rename current playlist with name"_s));
    listener.client.forgetCommands();
    enterName(&listener.client, "Lunch"_s);
    QTRY_COMPARE(listener.client.commands(),
                 QStringList{"UI_COMMAND|2010|100|"_s + listener.playlistUri(0) + "|Lunch"_s});
    QVERIFY(listener.sent({}));
    QTRY_VERIFY(!listener.client.item("PlaylistSaveDialog"_s));
}

// "Cancel" leaves the question standing.
void LibraryTest::playlistIsDeleted()
{
    PlayingListener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.openPlaylists());
    QVERIFY(listener.openPlaylistMenu());
    client.forgetCommands();
    QVERIFY(client.clickOn("Delete"_s));
    QVERIFY(client.clickOn("Cancel"_s));
    QVERIFY(listener.shows("Do you want to delete the playlist?"_s));
    QVERIFY(client.commands().isEmpty());
    client.click(okOf(client.item("PlaylistDeleteDialog"_s)));
    QTRY_COMPARE(client.commands(), QStringList{"UI_COMMAND|2011|100|"_s + listener.playlistUri(0)});
    QTRY_VERIFY(!client.item("PlaylistDeleteDialog"_s));
}

void LibraryTest::playlistIsTiedToASlot()
{
    PlayingListener listener;
    ClientWindow &client = listener.client;
    QVERIFY(listener.openPlaylists() && listener.openPlaylistMenu());
    QVERIFY(client.clickOn("Associate"_s));
    QVERIFY(listener.shows("Playlist Entries"_s) && !client.showsText("Add"_s));
    client.forgetCommands();
    QVERIFY(client.clickOn("Preset one"_s));
    QTRY_COMPARE(client.commands(), QStringList{"UI_COMMAND|2012|100|"_s + listener.playlistUri(0) + "|4"_s});
    QVERIFY(listener.shows("Add"_s));
    client.device.setPlaylistEntries({{4, "Preset one"_s, listener.playlistUri(0)}, {9, "Preset two"_s, {}}});
    QVERIFY(listener.shows("Preset one"_s));
    QTRY_VERIFY(!client.showsText("Preset two"_s));
    client.server.playlists()->remove(listener.playlistUri(1)); // the list follows the server
    QTRY_VERIFY(!client.showsText("Evening"_s));
}

HALVORA_SUITE_MAIN(LibraryTest)
#include "tst_library.moc"
