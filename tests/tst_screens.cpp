// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ClientWindow.h"
#include "support/SceneItems.h"
#include "support/Suite.h"

#include "player/PlayerTiming.h"

#include <QQmlComponent>
#include <QQmlEngine>

/**
 * The outputs screen as a person uses it, and what both screens have in common: mouse events on a real window, and
 * what then reaches the device. The player screen has a suite of its own.
 */
class ScreensTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    // What works
    void outputsShowTheDevice();
    void clicksReachTheDevice_data();
    void clicksReachTheDevice();
    void groupsBySource();
    void bandsMoveTheirSource();
    void matrixOpensAndCloses();
    void matrixFollowsTheDevice();
    void coversAreDrawn();
    void airPlayTakesOverTheRow();
    void startOrders_data();
    void startOrders();

    // What goes wrong
    void deviceDoesNotMoveAHeldSlider();
    void dragSendsNowAndThenAndAtTheEnd();
    void overlayTellsAndBlocks();
    void screenIsRightAfterHaste();
    void markupIsShownAsText();
    void deviceWithoutOutputsIsCalm();
    void hostThatForgetsTheScreensIsCalm();
    void screensFit_data();
    void screensFit();
};

namespace {

using SceneItems::centreOf;

// Where the controls of the row at `row` of the outputs are, in a window of 450 by 640.
QPoint muteOf(int row)
{
    return {415, 65 + 90 * row + 40};
}
QPoint sliderOf(int row, qreal part)
{
    return {105 + qRound(315 * part), 65 + 90 * row + 75};
}
QPoint coverOf(int row)
{
    return {52, 65 + 90 * row + 44};
}

// Cells of the open matrix of the outputs: two columns of 160 behind the titles.
QPoint cellAt(int row, int column)
{
    return {115 + 160 * column + 80, 65 + 150 + 50 * row + 25};
}

const QPoint matrixButton(410, 40);
const QPoint showAll(45, 40);
const QPoint showBySource(155, 40);

} // namespace

void ScreensTest::initTestCase()
{
    PlayerTiming::current() = {50, 25, 50};
}

void ScreensTest::outputsShowTheDevice()
{
    OutputsWindow client;
    QCOMPARE(client.texts(),
             (QStringList{"Show all"_s, "Show by source"_s, "Terrace"_s, "Music"_s, "Kitchen"_s, "Radio"_s,
                          "Bath"_s, "Music"_s}));
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(client.item("HorizontalSlider"_s, row)->property("value").toInt(),
                 client.device.state().outputs.at(row).volume);
    }
    client.device.setVolume(7, 33);
    QTRY_COMPARE(client.item("HorizontalSlider"_s, 1)->property("value").toInt(), 33);
    QCOMPARE(client.item("HorizontalSlider"_s, 0)->property("value").toInt(), 40);
}

void ScreensTest::clicksReachTheDevice_data()
{
    QTest::addColumn<QList<QPoint>>("clicks");
    QTest::addColumn<QString>("command");
    QTest::newRow("mute an output") << QList<QPoint>{muteOf(0)} << "2001|100|3|1"_s;
    QTest::newRow("unmute another") << QList<QPoint>{muteOf(1)} << "2001|100|7|0"_s;
    QTest::newRow("half volume") << QList<QPoint>{sliderOf(2, 0.5)} << "2000|100|12|50"_s;
    QTest::newRow("full volume") << QList<QPoint>{sliderOf(0, 0.999)} << "2000|100|3|100"_s;
    QTest::newRow("route to the other source")
        << QList<QPoint>{matrixButton, cellAt(0, 1)} << "2003|100|3@9"_s;
    QTest::newRow("route in the middle row") << QList<QPoint>{matrixButton, cellAt(1, 0)} << "2003|100|7@2"_s;
    QTest::newRow("the knob switches off") << QList<QPoint>{matrixButton, cellAt(2, 0)} << "2003|100|12@-1"_s;
}

void ScreensTest::clicksReachTheDevice()
{
    QFETCH(QList<QPoint>, clicks);
    QFETCH(QString, command);
    OutputsWindow client;
    client.forgetCommands();
    for (const QPoint &place : qAsConst(clicks)) {
        client.click(place);
        if (QQuickItem *matrix = client.item("MatrixPopup"_s)) {
            if (place == matrixButton)
                QTRY_COMPARE(matrix->y(), 65.0);
        }
    }
    QTRY_COMPARE(client.commands(), QStringList{"UI_COMMAND|"_s + command});
}

void ScreensTest::groupsBySource()
{
    OutputsWindow client;
    client.click(showBySource);
    const QStringList bars{"Show all"_s, "Show by source"_s};
    QTRY_COMPARE(client.texts(),
                 bars
                     + QStringList({"Music"_s, "Terrace"_s, "Music"_s, "Bath"_s, "Music"_s, "Radio"_s,
                                    "Kitchen"_s, "Radio"_s}));
    client.device.setRoute(3, 9);
    QTRY_COMPARE(client.texts(),
                 bars
                     + QStringList({"Music"_s, "Bath"_s, "Music"_s, "Radio"_s, "Terrace"_s, "Radio"_s,
                                    "Kitchen"_s, "Radio"_s}));
    client.click(showAll);
    QTRY_COMPARE(client.texts(),
                 bars + QStringList({"Terrace"_s, "Radio"_s, "Kitchen"_s, "Radio"_s, "Bath"_s, "Music"_s}));
}

void ScreensTest::bandsMoveTheirSource()
{
    OutputsWindow client;
    client.click(showBySource);
    QTRY_VERIFY(client.item("SourceBand"_s, 1));
    QCOMPARE(client.item("HorizontalSlider"_s)->property("value").toInt(), 70);
    client.forgetCommands();
    client.click(centreOf(client.item("SourceBand"_s, 1)) + QPoint(125 + 155 - 225, 0));
    QTRY_COMPARE(client.commands(), QStringList{"UI_COMMAND|2004|100|9|50"_s});
    client.device.setSourceVolume(2, 12);
    QTRY_COMPARE(client.item("HorizontalSlider"_s)->property("value").toInt(), 12);
}

void ScreensTest::matrixOpensAndCloses()
{
    OutputsWindow client;
    QQuickItem *matrix = client.item("MatrixPopup"_s);
    QCOMPARE(matrix->y(), 640.0);
    client.click(matrixButton);
    QTRY_COMPARE(matrix->y(), 65.0);
    QCOMPARE(matrix->property("selectedOutput").toInt(), -1);
    client.forgetCommands();
    client.click({60, 65 + 150 + 25}); // a title selects nothing here
    client.click({300, 600});          // and the ground lets nothing through
    QCOMPARE(client.tab(), 0);
    client.click({30, 65 + 20});
    QTRY_COMPARE(matrix->y(), 640.0);
    QCOMPARE(client.commands(), QStringList());
    client.click(matrixButton);
    QTRY_COMPARE(matrix->y(), 65.0);
    client.click(matrixButton);
    QTRY_COMPARE(matrix->y(), 640.0);
}

void ScreensTest::matrixFollowsTheDevice()
{
    OutputsWindow client;
    client.click(matrixButton);
    const auto columns = [&] {
        QList<int> columns;
        for (int row = 0; row < 3; ++row)
            columns << client.item("MatrixRow"_s, row)->property("selectedIndex").toInt();
        return columns;
    };
    QTRY_COMPARE(client.item("MatrixPopup"_s)->y(), 65.0);
    QCOMPARE(columns(), (QList<int>{0, 1, 0}));
    client.device.setRoute(3, 9);
    QTRY_COMPARE(columns(), (QList<int>{1, 1, 0}));
    client.device.setRoute(7, -1);
    QTRY_COMPARE(columns(), (QList<int>{1, -1, 0}));
    QCOMPARE(client.item("MatrixPopup"_s)->property("selectedOutput").toInt(), -1);
}

void ScreensTest::coversAreDrawn()
{
    OutputsWindow client;
    // A cover of one colour cannot be mistaken for anything else that is drawn.
    QImage green(300, 300, QImage::Format_RGB32);
    green.fill(Qt::green);
    QByteArray png;
    QBuffer buffer(&png);
    green.save(&buffer, "PNG");
    client.server.artwork()->setFile("/green.png"_s, "image/png", png);
    client.server.methods().add("core.library.get_images"_s, {"uris"_s}, [&](const QJsonObject &parameters) {
        const QString uri = parameters.value("uris"_s).toArray().first().toString();
        const QJsonObject picture{{"uri"_s, "/green.png"_s}, {"width"_s, 300}};
        return RpcReply{QJsonObject{{uri, QJsonArray{picture}}}, {}};
    });
    client.server.tracklist()->add({client.server.catalogue().track(3)});
    client.server.playback()->play();
    QTRY_COMPARE(client.pixel(coverOf(0)), QColor(Qt::green));
    client.click(coverOf(0));
    QTRY_COMPARE(client.pixel({225, 75 + 166}), QColor(Qt::green));
    // The backdrop: the cover at three tenths over the ground.
    QTRY_COMPARE(client.pixel({10, 85}), QColor(20, 102, 30));
}

void ScreensTest::airPlayTakesOverTheRow()
{
    PlayerWindow client;
    const QString song = client.server.playback()->current().track.name;
    client.selectTab(0);
    client.device.setAirPlay(2, {true, "Tide"_s, "Shore"_s, "Ann"_s, {}});
    QTRY_VERIFY(client.showsText("Tide - Ann"_s));
    client.device.setAirPlay(2, {});
    QTRY_VERIFY(!client.texts().filter(song).isEmpty());
}

void ScreensTest::startOrders_data()
{
    QTest::addColumn<bool>("screensFirst");
    QTest::newRow("screens first") << true;
    QTest::newRow("device first") << false;
}

void ScreensTest::startOrders()
{
    QFETCH(bool, screensFirst);
    ClientWindow client;
    QVERIFY(client.show(screensFirst));
    QTRY_VERIFY(client.showsText("Bath"_s));
    QTRY_VERIFY(!client.item("ConnectionOverlay"_s));
    QCOMPARE(client.device.liveConnections(), 1);
}

void ScreensTest::deviceDoesNotMoveAHeldSlider()
{
    OutputsWindow client;
    QQuickItem *slider = client.item("HorizontalSlider"_s);
    const QPoint knob = sliderOf(0, 0.4);
    client.press(knob);
    for (int x = 5; x <= 60; x += 5)
        client.moveTo(knob + QPoint(x, 0));
    QTRY_VERIFY(slider->property("sliding").toBool());
    const int held = slider->property("value").toInt();
    client.device.setVolume(3, 5);
    client.device.setVolume(7, 6); // behind it: when this has arrived, so has the other
    QTRY_COMPARE(client.item("HorizontalSlider"_s, 1)->property("value").toInt(), 6);
    QCOMPARE(slider->property("value").toInt(), held);
    client.release(knob + QPoint(60, 0));
    QTRY_COMPARE(client.lastCommand(), "UI_COMMAND|2000|100|3|%1"_s.arg(held));
    client.device.setVolume(3, 7);
    QTRY_COMPARE(slider->property("value").toInt(), 7);
}

void ScreensTest::dragSendsNowAndThenAndAtTheEnd()
{
    OutputsWindow client;
    client.forgetCommands();
    const QPoint knob = sliderOf(0, 0.4);
    const QDateTime began = QDateTime::currentDateTime();
    client.press(knob);
    for (int x = 1; x <= 100; ++x)
        client.moveTo(knob + QPoint(x, 0));
    client.release(knob + QPoint(100, 0));
    const int seconds = int(began.secsTo(QDateTime::currentDateTime())) + 2;
    const int value = client.item("HorizontalSlider"_s)->property("value").toInt();
    QTRY_COMPARE(client.lastCommand(), "UI_COMMAND|2000|100|3|%1"_s.arg(value));
    QVERIFY2(value > 60, "the knob has followed the mouse");
    QVERIFY2(client.commands().size() <= seconds + 1, "at most one a second, and the last");
}

void ScreensTest::overlayTellsAndBlocks()
{
    ClientWindow client;
    client.device.faults().ignoreLogin = true;
    QVERIFY(client.show());
    QTRY_VERIFY(client.showsText("Authentication in progress..."_s));
    QVERIFY(client.item("ConnectionOverlay"_s));
    client.click(showBySource);
    QCOMPARE(client.item("OutputsView"_s)->property("workingModality").toInt(), 0);
    client.background();
    QTRY_VERIFY(client.showsText("Disconnected."_s));
    client.device.faults().ignoreLogin = false;
    client.foreground();
    QTRY_VERIFY(!client.item("ConnectionOverlay"_s) && client.showsText("Bath"_s));
    client.click(showBySource);
    QTRY_COMPARE(client.item("OutputsView"_s)->property("workingModality").toInt(), 1);
}

void ScreensTest::screenIsRightAfterHaste()
{
    PlayerWindow client;
    for (int turn = 0; turn < 20; ++turn) {
        client.selectTab(turn % 2);
        client.background();
        client.foreground();
        QCoreApplication::processEvents();
    }
    QTRY_COMPARE(client.device.joinedConnections(), 1);
    QTRY_COMPARE(client.device.liveConnections(), 1);
    QTRY_VERIFY(!client.item("ConnectionOverlay"_s));
    QVERIFY(client.item("PlayerView"_s) && !client.item("OutputsView"_s));
    client.selectTab(0);
    QVERIFY(!client.item("PlayerView"_s) && client.item("OutputsView"_s));
    client.forgetCommands();
    client.click(muteOf(0));
    QTRY_COMPARE(client.commands(), QStringList{"UI_COMMAND|2001|100|3|1"_s});
}

void ScreensTest::markupIsShownAsText()
{
    OutputsWindow client;
    QVector<OutputState> outputs = client.device.state().outputs;
    outputs[0].name = "<img src='file:///none.png'><b>Bold & \"quoted\"</b>"_s;
    client.device.setOutputs(outputs);
    QTRY_VERIFY(client.showsText(outputs[0].name));
    QCOMPARE(client.itemWithText(outputs[0].name)->property("textFormat").toInt(), 0);
    QCOMPARE(client.itemWithText(outputs[0].name)->property("lineCount").toInt(), 1);
}

void ScreensTest::deviceWithoutOutputsIsCalm()
{
    ClientWindow client;
    client.device.setState({});
    QVERIFY(client.show());
    QTRY_COMPARE(client.device.joinedConnections(), 1);
    QTRY_VERIFY(!client.item("ConnectionOverlay"_s));
    client.click(showBySource);
    client.click(showAll);
    client.click(matrixButton);
    QTRY_COMPARE(client.item("MatrixPopup"_s)->y(), 65.0);
    client.click(cellAt(0, 0));
    client.selectTab(1);
    QCOMPARE(client.texts(), (QStringList{"Output"_s, "Source"_s}));
}

void ScreensTest::hostThatForgetsTheScreensIsCalm()
{
    ClientWindow client; // for its types
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.0\nimport com.kestrum.halvoraint 1.0\n"
                      "Item { property alias menu: menu\n"
                      "    Item { id: menu; property int currentIndex: -1 }\n"
                      "    Item { id: box }\n"
                      "    MainTabController { menuListView: menu; containerView: box } }",
                      QUrl());
    const QScopedPointer<QObject> scene(component.create());
    QVERIFY2(scene, qPrintable(component.errorString()));
    QObject *menu = scene->property("menu").value<QObject *>();
    for (const int index : {0, 1, 7, 0, -1})
        QVERIFY(menu->setProperty("currentIndex", index));
}

void ScreensTest::screensFit_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("usual") << QSize(450, 640);
    QTest::newRow("narrow") << QSize(360, 640);
    QTest::newRow("landscape") << QSize(1024, 768);
}

// Nothing that is written leaves the window, and the matrix waits below the screen in every size.
void ScreensTest::screensFit()
{
    QFETCH(QSize, size);
    PlayerWindow client;
    client.view.resize(size);
    for (int tab : {1, 0}) {
        client.selectTab(tab);
        QTRY_COMPARE(client.item(tab == 0 ? "OutputsView"_s : "PlayerView"_s)->size().toSize(), size);
        QTRY_COMPARE(client.item("MatrixPopup"_s)->y(), qreal(size.height()));
        const QStringList texts = client.texts();
        for (const QString &text : texts) {
            const QQuickItem *item = client.itemWithText(text);
            const QRectF box = item->mapRectToScene(item->boundingRect());
            QVERIFY2(QRectF({0, 0}, size).contains(box), qPrintable(text));
        }
    }
}

HALVORA_SUITE_MAIN(ScreensTest)

#include "tst_screens.moc"
