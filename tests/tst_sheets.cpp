// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Rows.h"
#include "support/SceneItems.h"
#include "support/Stage.h"
#include "support/Suite.h"

#include "player/Album.h"
#include "player/HalvoraPlayer.h"
#include "player/Song.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

/**
 * The menus for an item and the dialogs for a playlist, each in a window under a mouse.
 */
class TestSheets final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    // What works
    void menuShowsItsItem_data();
    void menuShowsItsItem();
    void playlistIsChosen();
    void dialogs_data();
    void dialogs();
    void dialogScales_data();
    void dialogScales();

    // What goes wrong
    void hostileNamesStayInside();
    void longMessageGrowsTheBox();
    void newWidthSlidesNothing();
};

namespace {

const QString sheetText = "%1 { width: 450; height: 640; onClose: tell(\"close\") }"_s;
const QString saveText =
    "PlaylistSaveDialog { id: dialog; onCreatePlaylist: tell(\"create \" + name); onRenamePlaylist: "
    "tell(\"rename \" + uri + \" \" + name); onRequireKeyboard: tell(textF.text + \"typing\"); "
    "onDismissKeyboard: tell(\"dismiss\"); "
    "onClose: tell(obj === dialog ? \"close\" : \"close nothing\"); %1 }"_s;
const QString deleteText =
    "PlaylistDeleteDialog { id: dialog; playlistUri: \"m3u:a\"; onConfirmDelete: tell(\"delete \" + uri); "
    "onClose: tell(obj === dialog ? \"close\" : \"close nothing\"); %1 }"_s;

// "track", "album" or any other type, as a server's answer would make it.
PlayerItem *newItem(const QString &type, const QString &name, QObject *parent)
{
    PlayerItem *item = nullptr;
    if (type == "track"_s) {
        auto *song = new Song(parent);
        song->setAlbum("Album of "_s + name);
        song->setArtistsString("Artist of "_s + name);
        item = song;
    } else if (type == "album"_s) {
        auto *album = new Album(parent);
        album->setArtistsString("Artist of "_s + name);
        item = album;
    } else {
        item = new PlayerItem(parent);
    }
    item->setType(type);
    item->setName(name);
    item->setUri(type + ":x"_s);
    return item;
}

void select(Stage *stage, const QString &type, const QString &name)
{
    PlayerItem *item = newItem(type, name, &stage->view);
    stage->tested()->setProperty("selectedItem", QVariant::fromValue(item));
}

} // namespace

void TestSheets::menuShowsItsItem_data()
{
    // `types`: of items "0", "1", ... shown one after the other
    Rows::add(
        "sheet types texts"_s,
        QString(R"(
        track ; MoreMenu ; track ; 0, Album of 0, Artist of 0, TRACK 0
        album ; MoreMenu ; album ; 0, Artist of 0, ALBUM 0
        album after track keeps the third row ; MoreMenu ; track album ; 1, Artist of 1, Artist of 0, ALBUM 1
        artist after track keeps the rows ; MoreMenu ; track artist ; 1, Album of 0, Artist of 0, TRACK 0
        playlist ; PlaylistMoreMenu ; m3u ; 0, Play Now "0", Add to Queue, Rename, Associate, Delete
        of a service ; PlaylistMoreMenu ; m3u spotify ; 1, Play Now "1", Add to Queue, Associate)"_s)
            .replace(
                QRegularExpression("TRACK (.)"_s),
                "Play Now \"\\1\", Play All Now, Play Track Next, "
                "Add to Queue, Add All to Queue, Add to Playlist, Add All to Playlist, Show Album \"Album of \\1\""_s)
            .replace(QRegularExpression("ALBUM (.)"_s),
                     "Play Now \"\\1\", Play Track Next, Add to Queue, Add to Playlist"_s));
}

void TestSheets::menuShowsItsItem()
{
    QFETCH(QString, sheet);
    QFETCH(QString, types);
    QFETCH(QString, texts);
    Stage stage(sheetText.arg(sheet));
    int name = 0;
    for (const QString &type : types.split(QLatin1Char(' ')))
        select(&stage, type, QString::number(name++));
    QTRY_COMPARE(stage.texts().join(", "_s), texts);
    stage.tested()->setProperty("selectedItem", QVariant::fromValue<PlayerItem *>(nullptr));
    QCOMPARE(stage.texts().join(", "_s), texts);
}

void TestSheets::playlistIsChosen()
{
    Stage stage(sheetText.arg("MoreMenu"_s));
    HalvoraPlayer player;
    const QJsonObject mine{{"uri"_s, "m3u:mine"_s}, {"name"_s, "Mine"_s}};
    player.updatePlaylists(QJsonArray{QJsonObject{{"uri"_s, "m3u:a"_s}, {"name"_s, "Other"_s}}, mine});
    stage.tested()->setProperty("selectedPlayer", QVariant::fromValue(&player));
    select(&stage, "track"_s, "It"_s);
    QTRY_VERIFY(stage.label("Mine"_s));
    const QQuickItem *list = stage.label("Mine"_s);
    QCOMPARE(list->mapToScene({}).x(), 465.0);
    stage.clickOn("Add to Playlist"_s);
    QTRY_COMPARE(list->mapToScene({}).x(), 15.0);
    stage.click({30, 195}); // back
    QTRY_COMPARE(list->mapToScene({}).x(), 470.0);
    QCOMPARE(stage.told(), QStringList());
    stage.clickOn("Add All to Playlist"_s);
    QTRY_COMPARE(list->mapToScene({}).x(), 15.0);
    stage.click({225, 200}); // beside it: the menu below is covered
    stage.clickOn("Mine"_s);
    QCOMPARE(stage.told(), (QStringList{"It_AddToPlaylist_All It m3u:mine"_s, "close"_s}));
    QTRY_COMPARE(list->mapToScene({}).x(), 470.0);
    stage.clickOn("Show Album \"Album of It\""_s);
    QCOMPARE(stage.told(), (QStringList{"It_ShowAlbum It"_s, "close"_s}));
    stage.click({30, 20});  // the close button
    stage.click({300, 20}); // beside it: goes nowhere
    QCOMPARE(stage.told(), QStringList{"close"_s});
}

void TestSheets::dialogs_data()
{
    // Scene 1 makes a playlist, 2 renames one and 3 deletes one. The keyboard goes with a return, if there is one.
    Rows::add("scene name button told"_s, R"(
        create ; 1 ; <i>Mix</i> ; Save ; typing, create <i>Mix</i>, close
        create, behind a return ; 1 ; a~b ; Save ; typing, dismiss, create a, close
        create without a name ; 1 ; ; Save ; create , close
        rename ; 2 ; Mix ; OK ; typing, rename m3u:a Mix, close
        cancel a name ; 1 ; Mix ; Cancel ; typing, close
        delete ; 3 ; ; OK ; delete m3u:a, close
        cancel a delete ; 3 ; ; Cancel ; close nothing)"_s);
}

void TestSheets::dialogs()
{
    QFETCH(QString, scene);
    QFETCH(QString, name);
    QFETCH(QString, button);
    Stage stage(scene == "3"_s
                    ? deleteText.arg(QString())
                    : saveText.arg(scene == "1"_s ? "okBtnText: \"Save\""_s : "playlistUri: \"m3u:a\""_s));
    stage.click({20, 20}); // on the veil
    if (!name.isEmpty())
        stage.click({225, 330}); // the field
    for (const QChar letter : qAsConst(name))
        QTest::keyClick(&stage.view, letter == QLatin1Char('~') ? '\r' : letter.toLatin1());
    QStringList told = stage.told();
    QCOMPARE(told.isEmpty(), name.isEmpty());
    stage.clickOn(button);
    told += stage.told();
    QTEST(told.join(", "_s), "told");
}

void TestSheets::dialogScales_data()
{
    // `width`: of the box, 300 unless it is scaled
    Rows::add("window smallScreen width"_s, R"(
        flag left out ; 450 640 ; ; 300
        not small, narrow ; 360 640 ; no ; 300
        not small, wide ; 1536 900 ; no ; 450
        flag left out, wide ; 1536 900 ; ; 450
        small, portrait ; 360 640 ; yes ; 288
        small, landscape ; 640 360 ; yes ; 378
        small, square ; 400 400 ; yes ; 420)"_s);
}

void TestSheets::dialogScales()
{
    QFETCH(QString, window);
    QFETCH(QString, smallScreen);
    const QSize size(window.section(QLatin1Char(' '), 0, 0).toInt(),
                     window.section(QLatin1Char(' '), 1).toInt());
    for (const QString &scene : {saveText, deleteText}) {
        Stage stage(scene.arg("headTitle: \"Title\""_s),
                    smallScreen.isEmpty() ? QVariant() : QVariant(smallScreen == "yes"_s));
        stage.view.resize(size);
        QTRY_COMPARE(stage.view.rootObject()->size().toSize(), size);
        const QQuickItem *box = stage.label("Title"_s)->parentItem();
        const QRectF shown = box->mapRectToScene({{}, box->size()});
        QTEST(QString::number(shown.width()), "width");
        QVERIFY(qAbs(shown.center().x() - size.width() / 2.0) <= 1);
    }
}

void TestSheets::hostileNamesStayInside()
{
    const QString name = "<b>\"a\"</b>\n\u05d0\u05d1 "_s + QString(500, QLatin1Char('w')) + "\n\n\nend"_s;
    for (const char *type : {"MoreMenu", "PlaylistMoreMenu"}) {
        Stage stage(sheetText.arg(QString::fromLatin1(type)));
        select(&stage, "track"_s, name);
        QTRY_VERIFY(!stage.texts().filter("Play Now \""_s + name).isEmpty());
        QCOMPARE(SceneItems::strays(stage.tested()), QStringList());
    }
}

void TestSheets::longMessageGrowsTheBox()
{
    const QString body = "many words "_s.repeated(12).trimmed();
    for (const QString &scene : {saveText, deleteText}) {
        Stage stage(scene.arg("headTitle: \"Title\"; bodyMessage: \"%1\""_s.arg(body)));
        const QQuickItem *box = stage.label("Title"_s)->parentItem();
        const QQuickItem *message = stage.label(body);
        QVERIFY(message->property("lineCount").toInt() > 3);
        const qreal buttons = stage.label("OK"_s)->mapToItem(box, {}).y();
        const qreal grown = box->height();
        QVERIFY(grown > 200 && buttons == grown - 50);
        QVERIFY(message->y() + message->height() + 20 <= buttons);
        stage.tested()->setProperty("bodyMessage", "short"_s);
        QVERIFY(box->height() >= 200 && box->height() < grown);
    }
}

void TestSheets::newWidthSlidesNothing()
{
    Stage stage("MoreMenu { width: parent.width; height: 640 }"_s);
    const QQuickItem *chooser = stage.tested()->childItems().constLast();
    stage.view.rootObject()->setWidth(900);
    QCOMPARE(chooser->x(), 900.0);
}

HALVORA_SUITE_MAIN(TestSheets)

#include "tst_sheets.moc"
