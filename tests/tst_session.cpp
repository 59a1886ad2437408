// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ClientWindow.h"
#include "support/SceneItems.h"
#include "support/Suite.h"

#include "player/PlayerTiming.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRandomGenerator>

/**
 * A long session of somebody who touches whatever there is, while the device and the music server change by
 * themselves: nothing but the notes of the screens may come to the console, and the client is as usable at the end as
 * it was at the start. Each row is another session; HALVORA_SESSION_STEPS makes them longer.
 */
class SessionTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void somebodyTouchesEverything_data();
    void somebodyTouchesEverything();
};

namespace {

class Somebody final
{
public:
    // Frames may be drawn in a thread of their own; they are counted in this one.
    explicit Somebody(quint32 seed) : m_chance(seed)
    {
        QObject::connect(&client.view, &QQuickWindow::frameSwapped, &client.view, [this] { ++m_frames; });
    }

    bool start()
    {
        PlayerTiming::current() = {50, 25, 50};
        PlaylistShelf *shelf = client.server.playlists();
        for (const QString &name : {"Morning"_s, "Evening"_s, "<b>Night</b>"_s})
            shelf->put(name, {client.server.catalogue().track(shelf->playlists().size() * 7).uri});
        client.device.setPlaylistEntries({{1, "One"_s, shelf->playlists().first().uri}, {2, "Two"_s, {}}});
        return client.showPlayer();
    }

    void step()
    {
        const int what = below(20);
        if (what < 12)
            touchSomething();
        else if (what < 15)
            drag();
        else if (what < 16)
            client.type("ab 1\r"_s.mid(below(5), 1));
        else
            changeAnything();
        if (below(4) == 0)
            return; // and the next ahead of any frame
        const int seen = m_frames;
        (void)QTest::qWaitFor([&] { return m_frames > seen; }, 20);
    }

    // As it was at the start, but with what has happened in between.
    void comeBack()
    {
        client.server.faults() = {};
        client.view.resize(450, 640);
        client.device.setSources(m_whole.sources);
        client.device.setOutputs(m_whole.outputs);
        client.selectTab(0);
    }

    ClientWindow client;

private:
    int below(int end) { return m_chance.bounded(end); }
    QPoint anywhere() { return {below(client.view.width()), below(client.view.height())}; }

    // What has a text or is a button, or any other place.
    void touchSomething()
    {
        QList<QPoint> places{anywhere()};
        const QList<QQuickItem *> items = SceneItems::shown(client.view.rootObject());
        for (const QQuickItem *item : items) {
            const QByteArray type = item->metaObject()->className();
            const QPoint centre = SceneItems::centreOf(item);
            if ((type.contains("Button") || type.contains("Text") || type.contains("Label"))
                && within(centre) == centre)
                places.append(centre);
        }
        client.click(places.at(below(places.size())));
    }

    void drag()
    {
        const QPoint from = anywhere();
        const QPoint to = below(2) ? QPoint(from.x() + below(300) - 150, from.y())
                                   : QPoint(from.x(), from.y() + below(400) - 200);
        const int interrupted = below(20); // at one of the parts, if at all
        client.press(from);
        for (int part = 1; part <= 4; ++part) {
            client.moveTo(within(from + (to - from) * part / 4));
            if (part == interrupted)
                changeAnything();
        }
        client.release(within(to));
    }

    QPoint within(const QPoint &place) const
    {
        return {qBound(0, place.x(), client.view.width() - 1),
                qBound(0, place.y(), client.view.height() - 1)};
    }

    void changeAnything()
    {
        const int what = below(10);
        if (what < 4)
            changeTheDevice();
        else if (what < 8)
            changeTheServer();
        else
            changeTheHost();
    }

    // The window, the tab, and whether anybody looks.
    void changeTheHost()
    {
        const std::function<void()> changes[] = {
            [&] {
                client.view.resize(QList<int>{450, 200, 900}.at(below(3)),
                                   QList<int>{640, 100, 330, 1000}.at(below(4)));
            },
            [&] { client.selectTab(below(2)); },
            [&] {
                client.background();
                client.foreground();
            },
        };
        changes[below(int(std::size(changes)))]();
    }

    void changeTheDevice()
    {
        DeviceSimulator &device = client.device;
        const int output = QList<int>{3, 7, 12}.at(below(3));
        const std::function<void()> changes[] = {
            [&] {
                device.setRoute(output, QList<int>{2, 9, -1}.at(below(3)));
            },
            [&] { device.setEqualizer(output, below(40) - 20, 0, 5, -20); },
            [&] {
                device.setAirPlay(2, {below(2) == 0, "Title"_s, "Album"_s, {}, {}});
            },
            [&] { device.setSources(m_whole.sources.mid(below(2))); },
            [&] { device.setOutputs(m_whole.outputs.mid(below(2), 1 + below(3))); },
            [&] {
                device.setPlaylistEntries({{5, "Five"_s, {}}});
            },
            [&] { device.setVolume(output, below(101)); },
        };
        changes[below(int(std::size(changes)))]();
    }

    void changeTheServer()
    {
        MusicServerSimulator &server = client.server;
        const auto track = [&](int position) { return server.catalogue().track(position); };
        const std::function<void()> changes[] = {
            [&] { server.tracklist()->add({track(below(200))}); },
            [&] { server.playlists()->put(QString::number(below(9)), {track(3).uri}); },
            [&] { server.playback()->next(); },
            [&] { server.dropAll(); },
            [&] { server.tracklist()->remove({server.playback()->currentTlid()}); },
            [&] { server.playback()->play(); },
            [&] {
                server.faults().spoilField = below(60);
                server.faults().spoilWith = QVector<QJsonValue>{{}, -1, "x"_s, QJsonObject(), QJsonArray()}
                                                .at(below(5));
            },
            [&] {
                server.faults().errorReply = below(4) == 0;
                server.faults().doubleReply = below(4) == 0;
                server.faults().replyDelayMs = below(2) * 200;
            },
        };
        changes[below(int(std::size(changes)))]();
    }

    QRandomGenerator m_chance;
    const DeviceState m_whole = client.device.state();
    int m_frames = 0;
};

} // namespace

void SessionTest::somebodyTouchesEverything_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 4; ++seed)
        QTest::addRow("session %u", seed) << seed;
}

void SessionTest::somebodyTouchesEverything()
{
    QFETCH(quint32, seed);
    // A route to a player that knows no song yet ends so, by design.
    allow("TypeError: Cannot read property 'currTimeChanged' of null");
    bool isNumber = false;
    const int wanted = qEnvironmentVariableIntValue("HALVORA_SESSION_STEPS", &isNumber);
    const int steps = isNumber ? wanted : 400;
    Somebody somebody(seed);
    QVERIFY(somebody.start());
    for (int step = 0; step < steps; ++step)
        somebody.step();
    ClientWindow &client = somebody.client;
    somebody.comeBack();
    QTRY_VERIFY(!client.item("ConnectionOverlay"_s) && client.clickOn("Show all"_s));
    for (const int volume : {33, 66}) {
        for (const int output : {3, 7, 12})
            client.device.setVolume(output, volume);
        QTRY_COMPARE(client.item("HorizontalSlider"_s)->property("value").toInt(), volume);
    }
}

HALVORA_SUITE_MAIN(SessionTest)
#include "tst_session.moc"
