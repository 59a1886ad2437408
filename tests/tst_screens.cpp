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
    void clicksReachTheDevice();
    void groupsBySource();
    void matrixFollowsTheDevice();

    // What goes wrong
    void deviceDoesNotMoveAHeldSlider();
    void overlayTellsAndBlocks();
    void screenIsRightAfterHaste();
    void markupIsShownAsText();
    void longNameTakesTwoLines();
    void groupingAheadOfTheNextFrame();
    void dragThatLosesItsScreen();
    void deviceWithoutOutputsIsCalm();
    void hostThatForgetsTheScreensIsCalm();
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
    QCOMPARE(client.texts().join(QLatin1Char(' ')),
             "Show all Show by source Terrace Music Kitchen Radio Bath Music"_s);
    const auto volumes = [&] {
        QList<int> volumes;
        for (int row = 0; row < 3; ++row)
            volumes << client.item("HorizontalSlider"_s, row)->property("value").toInt();
        return volumes;
    };
    QCOMPARE(volumes(), (QList<int>{40, 20, 60}));
    client.device.setVolume(7, 33);
    QTRY_COMPARE(volumes(), (QList<int>{40, 33, 60}));
    QCOMPARE(client.device.liveConnections(), 1);
}

void ScreensTest::clicksReachTheDevice()
{
    OutputsWindow client;
    const auto sentBy = [&client](const QPoint &place) {
        client.forgetCommands();
        client.click(place);
        Waiting::comes([&] { return !client.commands().isEmpty(); });
        return client.commands().join(QLatin1Char(' '));
    };
    QCOMPARE(sentBy(muteOf(0)), "UI_COMMAND|2001|100|3|1"_s);
    QCOMPARE(sentBy(muteOf(1)), "UI_COMMAND|2001|100|7|0"_s);
    client.click(matrixButton);
    QTRY_COMPARE(client.item("MatrixPopup"_s)->y(), 65.0);
    QCOMPARE(sentBy(cellAt(0, 1)), "UI_COMMAND|2003|100|3@9"_s); // to the other source
    QCOMPARE(sentBy(cellAt(1, 0)), "UI_COMMAND|2003|100|7@2"_s);
    QCOMPARE(sentBy(cellAt(2, 0)), "UI_COMMAND|2003|100|12@-1"_s); // the knob switches off
    client.click(matrixButton);
    QTRY_COMPARE(client.item("MatrixPopup"_s)->y(), 640.0);
    QCOMPARE(sentBy(sliderOf(2, 0.5)), "UI_COMMAND|2000|100|12|50"_s);
    client.click(sliderOf(0, 0.999));
    QTRY_COMPARE(client.lastCommand(), "UI_COMMAND|2000|100|3|100"_s);
}

void ScreensTest::groupsBySource()
{
    OutputsWindow client;
    const auto rows = [&] { return client.texts().mid(2).join(QLatin1Char(' ')); };
    client.click(showBySource);
    QTRY_COMPARE(rows(), "Music Terrace Music Bath Music Radio Kitchen Radio"_s);
    QCOMPARE(client.item("HorizontalSlider"_s)->property("value").toInt(), 70);
    client.forgetCommands();
    client.click(centreOf(client.item("SourceBand"_s, 1)) + QPoint(125 + 155 - 225, 0));
    QTRY_COMPARE(client.commands(), QStringList{"UI_COMMAND|2004|100|9|50"_s});
    client.device.setSourceVolume(2, 12);
    QTRY_COMPARE(client.item("HorizontalSlider"_s)->property("value").toInt(), 12);
    client.device.setRoute(3, 9);
    QTRY_COMPARE(rows(), "Music Bath Music Radio Terrace Radio Kitchen Radio"_s);
    client.click(showAll);
    QTRY_COMPARE(rows(), "Terrace Radio Kitchen Radio Bath Music"_s);
}

void ScreensTest::matrixFollowsTheDevice()
{
    OutputsWindow client;
    const QQuickItem *matrix = client.item("MatrixPopup"_s);
    QCOMPARE(matrix->y(), 640.0);
    client.click(matrixButton);
    QTRY_COMPARE(matrix->y(), 65.0);
    client.forgetCommands();
    client.click({60, 65 + 150 + 25}); // a title selects nothing here
    client.click({300, 600});          // and the ground lets nothing through
    QCOMPARE(client.tab(), 0);
    const auto columns = [&] {
        QList<int> columns{matrix->property("selectedOutput").toInt()};
        for (int row = 0; row < 3; ++row)
            columns << client.item("MatrixRow"_s, row)->property("selectedIndex").toInt();
        return columns;
    };
    QCOMPARE(columns(), (QList<int>{-1, 0, 1, 0}));
    client.device.setRoute(3, 9);
    QTRY_COMPARE(columns(), (QList<int>{-1, 1, 1, 0}));
    client.device.setRoute(7, -1);
    QTRY_COMPARE(columns(), (QList<int>{-1, 1, -1, 0}));
    client.click({30, 65 + 20});
    QTRY_COMPARE(matrix->y(), 640.0);
    QCOMPARE(client.commands(), QStringList());
    for (const qreal y : {65.0, 640.0}) {
        client.click(matrixButton);
        QTRY_COMPARE(matrix->y(), y);
    }
}

void ScreensTest::deviceDoesNotMoveAHeldSlider()
{
    OutputsWindow client;
    QQuickItem *slider = client.item("HorizontalSlider"_s);
    client.forgetCommands();
    const QPoint knob = sliderOf(0, 0.4);
    const QDateTime began = QDateTime::currentDateTime();
    client.press(knob);
    for (int x = 1; x <= 100; ++x)
        client.moveTo(knob + QPoint(x, 0));
    QTRY_VERIFY(slider->property("sliding").toBool());
    const int held = slider->property("value").toInt();
    QVERIFY2(held > 60, "the knob has followed the mouse");
    client.device.setVolume(3, 5);
    client.device.setVolume(7, 6); // behind it: when this has arrived, so has the other
    QTRY_COMPARE(client.item("HorizontalSlider"_s, 1)->property("value").toInt(), 6);
    QCOMPARE(slider->property("value").toInt(), held);
    client.release(knob + QPoint(100, 0));
    const int seconds = int(began.secsTo(QDateTime::currentDateTime())) + 2;
    QTRY_COMPARE(client.lastCommand(), "UI_COMMAND|2000|100|3|%1"_s.arg(held));
    QVERIFY2(client.commands().size() <= seconds + 1, "at most one a second, and the last");
    client.device.setVolume(3, 7);
    QTRY_COMPARE(slider->property("value").toInt(), 7);
}

void ScreensTest::overlayTellsAndBlocks()
{
    ClientWindow client;
    client.device.faults().ignoreLogin = true;
    QVERIFY(client.show(false)); // the device first
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

void ScreensTest::dragThatLosesItsScreen()
{
    OutputsWindow client;
    const QPoint knob = sliderOf(0, 0.4);
    client.press(knob);
    for (int x = 5; x <= 40; x += 5)
        client.moveTo(knob + QPoint(x, 0));
    QTRY_VERIFY(client.item("HorizontalSlider"_s)->property("sliding").toBool());
    client.selectTab(1); // nobody is left to tell, and nothing is warned of
    client.release(knob + QPoint(40, 0));
    client.selectTab(0);
    QTRY_VERIFY(client.showsText("Bath"_s));
}

// Qt's view of the rows has not heard then that they are others.
void ScreensTest::groupingAheadOfTheNextFrame()
{
    OutputsWindow client;
    for (const int grouping : {1, 0, 1}) {
        client.selectTab(1);
        client.selectTab(0);
        client.item("OutputsView"_s)
            ->setProperty("workingModality", grouping); // a click may come behind a frame
        QTRY_VERIFY(client.showsText("Bath"_s));
    }
    QVERIFY(client.item("SourceBand"_s));
}

void ScreensTest::longNameTakesTwoLines()
{
    ClientWindow client;
    const QString name = "Terrace and the old barn"_s;
    QVector<OutputState> outputs = client.device.state().outputs;
    for (OutputState &output : outputs) {
        if (output.name == "Terrace"_s)
            output.name = name;
    }
    client.device.setOutputs(outputs);
    QVERIFY(client.showPlayer() && client.showsText(name));
    QCOMPARE(client.itemWithText(name)->property("lineCount").toInt(), 2);
    QVERIFY(!client.itemWithText(name)->property("truncated").toBool());
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

void ScreensTest::screensFit()
{
    PlayerWindow client;
    for (const QSize &size : {QSize(450, 640), QSize(360, 640), QSize(1024, 768)}) {
        client.view.resize(size);
        for (const int tab : {1, 0}) {
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
}

HALVORA_SUITE_MAIN(ScreensTest)

#include "tst_screens.moc"
