// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ClientWindow.h"
#include "support/SceneItems.h"
#include "support/Suite.h"

#include "player/PlayerTiming.h"

/**
 * The equaliser of the player screen: the mouse on a real window, and what then reaches the device.
 */
class EqualiserTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PlayerTiming::current() = {50, 25, 50}; }

    // What works
    void dragsReachTheDevice();
    void showsTheSelectedOutput();
    void openEqualiserFits();

    // What goes wrong
    void deviceDoesNotMoveAHeldSlider();
    void bandStaysWhereItWasPutByADrag();
    void withoutAnOutputNothingIsSent();
    void withoutRoomNothingIsSent();
};

namespace {

const QList<int> tuned{5, -6, 7, 8};

// On the outputs screen: the way to the player of output 7.
const QPoint secondCover(52, 65 + 90 + 44);

QList<int> shownValues(const ClientWindow &client)
{
    QList<int> values;
    for (int band = 0; band < 4; ++band)
        values << client.item("VerticalSlider"_s, band)->property("value").toInt();
    return values;
}

void tune(ClientWindow *client, int output, const QList<int> &values)
{
    client->device.setEqualizer(output, values.at(0), values.at(1), values.at(2), values.at(3));
}

/// False if the panel does not come to rest where it belongs.
bool open(ClientWindow *client)
{
    client->click({345, 603});
    return QTest::qWaitFor([&] { return client->item("Equalizer"_s)->y() == 302; });
}

// The top of the bar is the grip's middle. The button stays down.
QPoint dragUp(ClientWindow *client, int band)
{
    const QQuickItem *bar = client->item("VerticalSlider"_s, band)->childItems().first();
    QPoint place = bar->mapToScene({bar->width() / 2, 0}).toPoint();
    client->press(place);
    for (int step = 0; step < 10; ++step)
        client->moveTo(place -= QPoint(0, 5));
    return place;
}

} // namespace

void EqualiserTest::dragsReachTheDevice()
{
    PlayerWindow client;
    tune(&client, 3, tuned);
    QTRY_COMPARE(shownValues(client), tuned);
    QVERIFY(open(&client));
    client.forgetCommands();
    client.click({410, 603}); // on the ground, which lets nothing through to the mute button
    QList<int> values = tuned;
    for (int band = 0; band < 4; ++band) {
        client.release(dragUp(&client, band));
        // The echo of the drag's first command may come after the release, and before that of the last.
        QTRY_VERIFY2(shownValues(client).at(band) > tuned[band] + 4, "the slider has followed the mouse");
        values[band] = shownValues(client).at(band);
        const QString command = "UI_COMMAND|2002|100|3|%1|%2|%3|%4"_s;
        QTRY_COMPARE(client.lastCommand(),
                     command.arg(values.at(0)).arg(values.at(1)).arg(values.at(2)).arg(values.at(3)));
        QTRY_COMPARE(shownValues(client), values);
    }
    QCOMPARE(client.commands().filter("|2002|"_s), client.commands());
}

void EqualiserTest::showsTheSelectedOutput()
{
    ClientWindow client;
    tune(&client, 3, tuned);
    tune(&client, 7, {-1, 2, -3, 4});
    QVERIFY(client.showPlayer());
    QCOMPARE(shownValues(client), tuned);
    tune(&client, 12, {1, 1, 1, 1});
    client.selectTab(0);
    client.click(secondCover);
    QTRY_COMPARE(shownValues(client), (QList<int>{-1, 2, -3, 4}));
    QVERIFY(open(&client));
    client.forgetCommands();
    client.release(dragUp(&client, 0));
    QTRY_VERIFY(client.lastCommand().startsWith("UI_COMMAND|2002|100|7|"_s));
    QVERIFY(client.lastCommand().endsWith("|2|-3|4"_s));
}

void EqualiserTest::openEqualiserFits()
{
    PlayerWindow client;
    QVERIFY(open(&client));
    for (const QSize &size : {QSize(450, 640), QSize(360, 640), QSize(1024, 768)}) {
        client.view.resize(size);
        QTRY_COMPARE(client.item("PlayerView"_s)->size().toSize(), size);
        qreal right = 0;
        for (const QString &text : {"BASS 100Hz"_s, "MIDDLE 1kHz"_s, "TREBLE 10kHz"_s, "LOUDNESS"_s}) {
            const QQuickItem *label = client.itemWithText(text);
            const qreal half = label->property("contentWidth").toReal() / 2;
            const QPointF centre = label->mapToScene(
                {label->width() / 2, label->property("contentHeight").toReal()});
            QVERIFY2(centre.x() - half > right && centre.y() <= size.height(), qPrintable(text));
            right = centre.x() + half;
        }
        QVERIFY(right <= size.width());
    }
}

void EqualiserTest::deviceDoesNotMoveAHeldSlider()
{
    PlayerWindow client;
    QVERIFY(open(&client));
    const QPoint end = dragUp(&client, 1);
    const int held = shownValues(client).at(1);
    QVERIFY(held > 4);
    // Said again and again: a command of the drag or of its end may still be on its way and undo it once.
    const auto afterEcho = [&](const QList<int> &values) {
        tune(&client, 3, values);
        return shownValues(client);
    };
    QTRY_COMPARE(afterEcho({-9, -9, -9, -9}), (QList<int>{-9, held, -9, -9}));
    client.release(end);
    QTRY_COMPARE(client.lastCommand(), "UI_COMMAND|2002|100|3|-9|%1|-9|-9"_s.arg(held));
    QTRY_COMPARE(afterEcho(tuned), tuned);
}

void EqualiserTest::bandStaysWhereItWasPutByADrag()
{
    PlayerWindow client;
    QVERIFY(open(&client));
    client.release(dragUp(&client, 1));
    const QQuickItem *fill = client.item("VerticalSlider"_s, 1)->childItems().first();
    const qreal top = fill->y();
    QTRY_VERIFY(client.device.state().outputs.first().middle > 4);
    const auto valueAfter = [&](int middle) {
        tune(&client, 3, {0, middle, 0, 0});
        return shownValues(client).at(1);
    };
    QTRY_COMPARE(valueAfter(-15), -15);
    QCOMPARE(fill->y(), top);
}

void EqualiserTest::withoutAnOutputNothingIsSent()
{
    OutputsWindow client;
    client.selectTab(1);
    QVERIFY(open(&client));
    client.forgetCommands();
    client.release(dragUp(&client, 2));
    QVERIFY(shownValues(client).at(2) > 4);
    client.background(); // whatever was sent has arrived when the connection has ended
    QTRY_COMPARE(client.device.liveConnections(), 0);
    QCOMPARE(client.commands(), QStringList());
}

// On a low screen the grips of the bands still show, and have no way to go.
void EqualiserTest::withoutRoomNothingIsSent()
{
    PlayerWindow client;
    client.view.resize(450, 330);
    QTRY_COMPARE(client.item("PlayerView"_s)->height(), 330.0);
    client.click({345, 330 - 37});
    QTRY_COMPARE(client.item("Equalizer"_s)->y(), 302.0);
    client.forgetCommands();
    const QPoint grip = SceneItems::centreOf(client.item("VerticalSlider"_s)->childItems().at(1));
    QVERIFY(grip.y() > 302 && grip.y() < 330);
    client.press(grip);
    for (int y : {5, 10, 15, 20})
        client.moveTo(grip + QPoint(0, y));
    client.release(grip + QPoint(0, 20));
    client.click({410, 285}); // mute
    QTRY_COMPARE(client.commands(), QStringList{"UI_COMMAND|2001|100|3|1"_s});
}

HALVORA_SUITE_MAIN(EqualiserTest)

#include "tst_equaliser.moc"
