// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ObjectCount.h"
#include "support/Suite.h"

#include "model/Halvora.h"
#include "navigation/BrowseListView.h"
#include "navigation/LibraryRows.h"
#include "navigation/PlaylistNavController.h"
#include "player/Reclaimer.h"
#include "plugin/TypeRegistry.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>

namespace {

using Replace = std::function<void()>; // a list by an equal one, all of whose objects are new

QJsonValue json(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).array();
}

QJsonValue rows(const QString &row, int count)
{
    QJsonArray rows;
    for (int i = 0; i < count; ++i)
        rows.append(
            QJsonDocument::fromJson(QString(row).replace(QLatin1Char('#'), QString::number(i)).toUtf8())
                .object());
    return rows;
}

} // namespace

Q_DECLARE_METATYPE(Replace)

/**
 * Memory that does not grow: what lists drop is freed, unless a screen still shows it.
 */
class ReclaimerTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void listsDoNotGrow_data();
    void listsDoNotGrow();
    void sectionsAreFreedWithTheirLastView();

    // What goes wrong
    void shownItemStays();
    void songOfAnotherStays();
    void whatIsNamedMayGoFirst();
    void nothingIsFreedWithoutAnEngine();

private:
    HalvoraPlayer m_player;
    Halvora m_device;
    BrowseListView m_view;
};

void ReclaimerTest::listsDoNotGrow_data()
{
    QTest::addColumn<Replace>("replace");
    const QJsonValue queue = rows(R"({"tlid":#,"track":{"uri":"q:#","name":"N"}})"_s, 500);
    QTest::newRow("queue") << Replace([=] { m_player.updateQueue(queue); });
    const QJsonValue numberless = rows(R"({"track":{"uri":"q:#","name":"N"}})"_s, 500);
    QTest::newRow("queue without numbers") << Replace([=] { m_player.updateQueue(numberless); });
    const QJsonValue playlists = rows(R"({"uri":"p:#","name":"P"})"_s, 500);
    QTest::newRow("playlists") << Replace([=] { m_player.updatePlaylists(playlists); });
    QTest::newRow("current song") << Replace([this] {
        static int number = 0;
        m_player.updateTrackInfo(QJsonObject{{"uri"_s, QString::number(++number)}});
    });
    QStringList entries{"1"_s, "BROAD"_s, "25"_s, "x"_s};
    for (int i = 0; i < 500; ++i)
        entries.append("%1@Slot@"_s.arg(i));
    QTest::newRow("preset slots") << Replace([=] { m_device.commandReceived(entries); });
    const QJsonValue found = rows(R"({"uri":"r:#","name":"R","type":"track"})"_s, 500);
    QTest::newRow("rows") << Replace([=] {
        const LibraryRows read = LibraryRows::fromDirectory(found);
        m_view.setRowTypes(read.types);
        m_view.setSections(read.sections);
    });
    QTest::newRow("backends of a search") << Replace([=] {
        const QJsonObject backend{{"tracks"_s, found}};
        const LibraryRows read = LibraryRows::fromSearch(QJsonArray{backend, backend});
        m_view.setRowTypes(read.types);
        m_view.setSections(read.sections);
    });
}

void ReclaimerTest::listsDoNotGrow()
{
    QFETCH(Replace, replace);
    QQmlEngine engine;
    Reclaimer::begin(&engine);
    replace();
    const int objects = ObjectCount::alive();
    for (int i = 0; i < 20; ++i)
        replace();
    QTRY_VERIFY2(ObjectCount::alive() <= objects + 5,
                 qPrintable(QString::number(ObjectCount::alive() - objects)));
}

void ReclaimerTest::sectionsAreFreedWithTheirLastView()
{
    QQmlEngine engine;
    Reclaimer::begin(&engine);
    const LibraryRows read = LibraryRows::fromDirectory(json(R"([{"uri":"a","name":"A","type":"track"}])"_s));
    QPointer<SectionItems> section = read.sections.value("track"_s);
    QPointer<PlayerItem> row = section->items.first();
    auto first = std::make_unique<BrowseListView>();
    auto second = std::make_unique<BrowseListView>();
    for (BrowseListView *view : {first.get(), second.get()}) {
        view->setRowTypes(read.types);
        view->setSections(read.sections);
    }
    first.reset();
    QCoreApplication::processEvents();
    QVERIFY(section && row);
    second.reset();
    QTRY_VERIFY(!section && !row);
}

// Held by a property, as a delegate does; only when that lets go of it, the collector takes it.
void ReclaimerTest::shownItemStays()
{
    registerHalvoraTypes();
    QQmlEngine engine;
    Reclaimer::begin(&engine);
    HalvoraPlayer player;
    engine.rootContext()->setContextProperty("player"_s, &player);
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.0\nimport com.kestrum.logic 1.0\nQtObject { property Song shown }",
                      QUrl());
    const std::unique_ptr<QObject> screen(component.create());
    QVERIFY2(screen != nullptr, qPrintable(component.errorString()));
    player.updateQueue(json(R"([{"tlid":1,"track":{"uri":"a","name":"A"}}])"_s));
    QQmlExpression(engine.rootContext(), screen.get(), "shown = player.queue[0]"_s).evaluate();
    const QPointer<Song> song = screen->property("shown").value<Song *>();
    QVERIFY(song);
    player.updateQueue(json("[]"_s));
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        engine.collectGarbage();
    }
    QVERIFY(song);
    QCOMPARE(song->name(), "A"_s);
    screen->setProperty("shown", QVariant::fromValue<Song *>(nullptr));
    QTRY_VERIFY((engine.collectGarbage(), !song));
}

// A current song that somebody else has set is theirs, also when the server tells of the next ones.
void ReclaimerTest::songOfAnotherStays()
{
    QQmlEngine engine;
    Reclaimer::begin(&engine);
    const QPointer<Song> theirs = new Song;
    m_player.setCurrentSong(theirs);
    m_player.updateTrackInfo(QJsonObject{{"uri"_s, "made"_s}});
    const QPointer<Song> made = m_player.currentSong();
    m_player.updateTrackInfo(QJsonObject{{"uri"_s, "next"_s}});
    QTRY_VERIFY(!made);
    QVERIFY(theirs);
    delete theirs;
}

// Scripts may keep an output, and the host's items the playlists, when the device has gone.
void ReclaimerTest::whatIsNamedMayGoFirst()
{
    Output output;
    Source source;
    PlaylistNavController playlists;
    {
        Halvora device;
        HalvoraPlayer player;
        Source routed;
        output.setSelectedSource(&routed);
        source.setPlayer(&player);
        playlists.setCurrHalvora(&device);
        playlists.setCurrPlayer(&player);
    }
    QVERIFY(!output.selectedSource());
    QVERIFY(!source.player());
    QVERIFY(!playlists.currHalvora() && !playlists.currPlayer());
}

void ReclaimerTest::nothingIsFreedWithoutAnEngine()
{
    HalvoraPlayer player;
    player.updatePlaylists(json(R"([{"uri":"a","name":"A"}])"_s));
    const QPointer<PlayerItem> playlist = player.playlistItems().first();
    player.updatePlaylists(json("[]"_s));
    QCoreApplication::processEvents();
    QVERIFY(playlist);
    delete playlist;
}

HALVORA_SUITE_MAIN(ReclaimerTest)
#include "tst_reclaimer.moc"
