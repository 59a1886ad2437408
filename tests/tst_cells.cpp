// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

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
    void hostileNamesStayInside_data();
    void hostileNamesStayInside();
    void newWidthSlidesNothing();
};

namespace {

const QString cellText =
    "%1 { width: 450; height: 75; textLabel: \"Cell\"; onClicked: tell(\"clicked\"); %2 }"_s;

QString cell(const QString &type, const QString &more = {})
{
    return cellText.arg(type, more);
}

} // namespace

void TestCells::swipes_data()
{
    QTest::addColumn<QString>("scene");
    QTest::addColumn<QList<QList<int>>>("gestures");
    QTest::addColumn<bool>("aside");
    QTest::addColumn<QStringList>("told");
    const QStringList clicked{"clicked"_s};
    for (const char *type : {"GenericCell", "DetailedCell", "SongCell"}) {
        const QString scene = cell(QString::fromLatin1(type), "removeEnabled: true"_s);
        const QString fixed = cell(QString::fromLatin1(type));
        QTest::addRow("%s, left 51", type) << scene << QList<QList<int>>{{300, 249}} << true << QStringList();
        QTest::addRow("%s, left 50", type) << scene << QList<QList<int>>{{300, 250}} << false << clicked;
        QTest::addRow("%s, right 51", type)
            << scene << QList<QList<int>>{{200, 251}} << false << QStringList();
        QTest::addRow("%s, one gesture does one thing", type)
            << scene << QList<QList<int>>{{300, 200, 400}} << true << QStringList();
        QTest::addRow("%s, left, then right", type)
            << scene << QList<QList<int>>{{300, 200}, {200, 300}} << false << QStringList();
        QTest::addRow("%s, not removable", type)
            << fixed << QList<QList<int>>{{300, 200}} << false << clicked;
    }
}

void TestCells::swipes()
{
    QFETCH(QString, scene);
    QFETCH(QList<QList<int>>, gestures);
    QFETCH(bool, aside);
    Stage stage(scene);
    const qreal rest = stage.label("Cell"_s)->mapToScene({}).x();
    const QQuickItem *red = stage.label("Delete"_s) ? stage.label("Delete"_s)->parentItem() : nullptr;
    QCOMPARE(red != nullptr, stage.tested()->property("removeEnabled").toBool());
    for (const QList<int> &gesture : qAsConst(gestures))
        stage.drag(gesture);
    if (red) {
        QTRY_COMPARE(red->x(), aside ? 450 - red->width() : 500.0);
        QTRY_COMPARE(stage.label("Cell"_s)->mapToScene({}).x(), rest - (aside ? red->width() : 0));
    }
    QTEST(stage.told(), "told");
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
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("stem");
    QTest::newRow("song") << "SongCell"_s
                          << "defaultcoverart"_s;
    QTest::newRow("playlist") << "PlaylistCell"_s
                              << "playlistcoverart"_s;
}

void TestCells::pictures()
{
    QFETCH(QString, type);
    QFETCH(QString, stem);
    Stage stage(cell(type));
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

void TestCells::hostileNamesStayInside_data()
{
    QTest::addColumn<QString>("scene");
    const QString detail = "detailTextLabel: textLabel"_s;
    QTest::newRow("generic") << cell("GenericCell"_s);
    QTest::newRow("detailed") << cell("DetailedCell"_s, detail);
    QTest::newRow("song") << cell("SongCell"_s, detail + "; menuBtnVisible: true"_s);
    QTest::newRow("playlist") << cell("PlaylistCell"_s, detail);
    QTest::newRow("slot") << cell("PlaylistEntryCell"_s, detail);
}

void TestCells::hostileNamesStayInside()
{
    QFETCH(QString, scene);
    const QString name = "<b>\"a\"</b>\n\u05d0\u05d1 "_s + QString(500, QLatin1Char('w')) + "\n\n\nend"_s;
    Stage stage(scene);
    stage.tested()->setProperty("textLabel", name);
    QVERIFY(!stage.texts().filter(name).isEmpty());
    QCOMPARE(SceneItems::strays(stage.tested()), QStringList());
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
