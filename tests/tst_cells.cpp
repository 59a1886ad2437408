// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Rows.h"
#include "support/SceneItems.h"
#include "support/Stage.h"
#include "support/Suite.h"

/**
 * The cells of the lists, each in a window under a mouse.
 */
class TestCells final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    // What works
    void swipes_data();
    void swipes();
    void redButtonRemoves();
    void clicks_data();
    void clicks();
    void pictures_data();
    void pictures();

    // What goes wrong
    void hostileNamesStayInside();
    void newWidthSlidesNothing();
};

namespace {

QString cell(const QString &type, const QString &more = {})
{
    return "%1 { width: 450; height: 75; textLabel: \"Cell\"; onClicked: tell(\"clicked\"); %2 }"_s.arg(type,
                                                                                                        more);
}

} // namespace

void TestCells::swipes_data()
{
    // `state`: of the cell in the end
    Rows::add("gestures state told"_s, R"(
        left 51 ; 300 249 ; aside
        left 50 ; 300 250 ; at rest ; clicked
        right 51 ; 200 251 ; at rest
        one gesture does one thing ; 300 200 400 ; aside
        left, then right ; 300 200, 200 300 ; at rest
        not removable ; 300 200 ; fixed ; clicked)"_s);
}

void TestCells::swipes()
{
    QFETCH(QString, gestures);
    QFETCH(QString, state);
    for (const QString &type : {"GenericCell"_s, "DetailedCell"_s, "SongCell"_s}) {
        Stage stage(cell(type, state == "fixed"_s ? QString() : "removeEnabled: true"_s));
        const qreal rest = stage.label("Cell"_s)->mapToScene({}).x();
        for (const QString &gesture : gestures.split(", "_s)) {
            QList<int> places;
            for (const QString &place : gesture.split(QLatin1Char(' ')))
                places << place.toInt();
            stage.drag(places);
        }
        QTEST(stage.told().join(QLatin1Char(' ')), "told");
        QCOMPARE(stage.label("Delete"_s) == nullptr, state == "fixed"_s);
        if (state == "fixed"_s)
            continue;
        const QQuickItem *red = stage.label("Delete"_s)->parentItem();
        QTRY_COMPARE(red->x(), state == "aside"_s ? 450 - red->width() : 500.0);
        const qreal moved = state == "aside"_s ? red->width() : 0;
        QTRY_COMPARE(stage.label("Cell"_s)->mapToScene({}).x(), rest - moved);
    }
}

void TestCells::redButtonRemoves()
{
    Stage stage(cell("SongCell"_s, "removeEnabled: true; onRemoveItem: tell(\"remove\")"_s));
    stage.drag({300, 200});
    QTRY_VERIFY(stage.label("Delete"_s)->mapToScene({}).x() < 430);
    stage.tested()->setProperty("removeEnabled", false); // leaves what is out
    stage.clickOn("Delete"_s);
    QCOMPARE(stage.told(), QStringList{"remove"_s});
}

void TestCells::clicks_data()
{
    QTest::addColumn<QString>("scene");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QString>("told");
    const QString menu = "onMoreMenuRequested: tell(\"menu\")"_s;
    const QString accessory = "accessoryEnabled: true; onAccessoryClicked: tell(\"accessory\")"_s;
    const QPoint dots(420, 55);
    QTest::newRow("song") << cell("SongCell"_s, menu) << dots << "clicked"_s;
    QTest::newRow("menu of a song") << cell("SongCell"_s, menu + "; menuBtnVisible: true"_s) << dots
                                    << "menu"_s;
    QTest::newRow("playlist") << cell("PlaylistCell"_s, menu) << QPoint(200, 30) << "clicked"_s;
    QTest::newRow("menu of a playlist") << cell("PlaylistCell"_s, menu) << dots << "menu"_s;
    QTest::newRow("slot") << cell("PlaylistEntryCell"_s) << dots << "clicked"_s;
    QTest::newRow("accessory is below") << cell("DetailedCell"_s, accessory) << dots << "clicked"_s;
}

void TestCells::clicks()
{
    QFETCH(QPoint, place);
    QFETCH(QString, scene);
    Stage stage(scene);
    stage.click(place);
    QTEST(stage.told().join(QLatin1Char(' ')), "told");
}

void TestCells::pictures_data()
{
    Rows::add("stem"_s, R"(
        SongCell ; defaultcoverart
        PlaylistCell ; playlistcoverart)"_s);
}

void TestCells::pictures()
{
    QFETCH(QString, stem);
    Stage stage(cell(QString::fromLatin1(QTest::currentDataTag())));
    const QList<QQuickItem *> items = SceneItems::shown(stage.tested());
    const auto picture = std::find_if(items.begin(), items.end(), [](const QQuickItem *item) {
        return item->inherits("QQuickImage") && item->size() == QSizeF(64, 64);
    });
    QVERIFY(picture != items.end());
    const QString ours = "qrc:/HalvoraImgs/Images/%1%2.png"_s;
    QCOMPARE((*picture)->property("source").toString(), ours.arg(stem, "_0"_s));
    stage.theme.setImgSuffix("_1"_s);
    QCOMPARE((*picture)->property("source").toString(), ours.arg(stem, "_1"_s));
    QMetaObject::invokeMethod(stage.tested(), "updateImage", Q_ARG(QVariant, "http://host/a.png"_s));
    QTRY_COMPARE(stage.view.grabWindow().pixelColor(40, 40), QColor(Qt::green));
    QMetaObject::invokeMethod(stage.tested(), "updateImage", Q_ARG(QVariant, ours.arg("play"_s, QString())));
    QCOMPARE((*picture)->property("source").toString(), ours.arg("play"_s, QString()));
}

void TestCells::hostileNamesStayInside()
{
    const QString name = "<b>\"a\"</b>\n\u05d0\u05d1 "_s + QString(500, QLatin1Char('w')) + "\n\n\nend"_s;
    const QString detail = "detailTextLabel: textLabel"_s;
    for (const QString &scene : {cell("GenericCell"_s), cell("DetailedCell"_s, detail),
                                 cell("SongCell"_s, detail + "; menuBtnVisible: true"_s),
                                 cell("PlaylistCell"_s, detail), cell("PlaylistEntryCell"_s, detail)}) {
        Stage stage(scene);
        stage.tested()->setProperty("textLabel", name);
        QVERIFY2(!stage.texts().filter(name).isEmpty(), qPrintable(scene));
        QCOMPARE(SceneItems::strays(stage.tested()), QStringList());
    }
}

void TestCells::newWidthSlidesNothing()
{
    Stage stage("SongCell { width: parent.width; removeEnabled: true }"_s);
    const QQuickItem *red = stage.label("Delete"_s)->parentItem();
    stage.view.rootObject()->setWidth(900);
    QCOMPARE(red->x(), 950.0);
}

HALVORA_SUITE_MAIN(TestCells)

#include "tst_cells.moc"
