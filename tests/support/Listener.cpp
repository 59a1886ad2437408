// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Listener.h"

#include "simulator/MopidyModels.h"
#include "support/Text.h"
#include "support/Waiting.h"

const QPoint Listener::libraryButton(40, 115);
const QPoint Listener::searchButton(410, 115);
const QPoint Listener::playlistsButton(105, 603);
const QPoint Listener::rightButton(415, 22);
const QPoint Listener::backButton(60, 22);

namespace {

constexpr int menuButton = 420; // of a row, from the left
const QPoint searchField(150, 44 + 20);
constexpr int foundAlbum = 10; // positions in the catalogue
constexpr int otherAlbum = 100;

} // namespace

Listener::Listener(const Catalogue &catalogue) : client(catalogue) { }

bool Listener::start()
{
    if (!client.showPlayer())
        return false;
    client.forgetRequests();
    client.forgetCommands();
    return true;
}

QStringList Listener::uris(int from, int to) const
{
    QStringList uris;
    for (int position = from; position < to; ++position)
        uris.append(track(position).uri);
    return uris;
}

QString Listener::details(int position) const
{
    QStringList artists;
    for (const CatalogueArtist &artist : track(position).artists)
        artists.append(artist.name);
    return track(position).albumName + "\n"_s + artists.join(", "_s);
}

bool Listener::sent(const QStringList &expected)
{
    const bool came = Waiting::comes([&] { return client.requests().size() >= expected.size(); });
    QTest::qWait(0);
    const bool right = came && client.requests() == expected;
    if (!right)
        qInfo() << "sent" << client.requests() << "expected" << expected;
    client.forgetRequests();
    return right;
}

bool Listener::shows(const QString &text) const
{
    return Waiting::comes([&] { return client.showsText(text); });
}

bool Listener::openAlbums(int position)
{
    client.click(libraryButton);
    return client.clickOn("Local media"_s) && client.clickOn("Albums"_s) && shows(track(position).albumName);
}

bool Listener::openAlbum(int position)
{
    if (!openAlbums(position) || !client.clickOn(track(position).albumName) || !shows(details(position)))
        return false;
    client.forgetRequests();
    return true;
}

bool Listener::openMenuOf(const QString &row, const QString &menu)
{
    const QQuickItem *label = client.itemWithText(row);
    if (!label)
        return false;
    client.click({menuButton, int(label->mapToScene({}).y()) + 40});
    return isStill(menu);
}

bool Listener::isStill(const QString &type)
{
    return Waiting::comes([&] {
        const QQuickItem *panel = client.item(type);
        return panel && panel->y() == 0 && panel->x() == 0;
    });
}

bool Listener::closeFilters()
{
    return client.clickOn("Select"_s)
        && Waiting::comes([&] { return client.item("FilterPanel"_s)->x() >= 450; });
}

bool Listener::openPlaylists()
{
    if (client.server.playlists()->playlists().isEmpty()) {
        client.server.playlists()->put("Morning"_s, uris(30, 33));
        client.server.playlists()->put("Evening"_s, uris(33, 35));
    }
    client.device.setPlaylistEntries({{4, "Preset one"_s, {}}, {9, "Preset two"_s, playlistUri(1)}});
    client.click(playlistsButton);
    if (!isStill("PlaylistsNavPopup"_s) || !shows("Preset two"_s))
        return false;
    client.forgetRequests();
    return true;
}

bool Listener::openSearch()
{
    client.click(searchButton);
    return shows("Search"_s);
}

void Listener::searchFor(const QString &text)
{
    client.click(searchField);
    client.type(text);
    QTest::keyClick(&client.view, Qt::Key_Return);
}

bool Listener::search(const QString &text)
{
    if (!openSearch())
        return false;
    searchFor(text);
    return true;
}

QJsonArray Listener::results(int tracks) const
{
    QJsonArray found;
    for (int i = 0; i < tracks; ++i)
        found.append(MopidyModels::track(track(foundAlbum + i)));
    return {MopidyModels::searchResult("local:search"_s, found, {MopidyModels::album(track(otherAlbum))},
                                       {MopidyModels::artist(track(foundAlbum).artists.constFirst())})};
}

PlayingListener::PlayingListener(const Catalogue &catalogue) : Listener(catalogue)
{
    QVERIFY(start());
}
