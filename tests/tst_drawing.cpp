// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ClientWindow.h"
#include "support/Golden.h"
#include "support/Listed.h"
#include "support/Suite.h"

#include "images/ImageDownloader.h"
#include "player/HalvoraPlayer.h"
#include "player/PlayerTiming.h"

#include <algorithm>

/**
 * What the screens draw, and how often. HALVORA_RENEW_GOLDEN=1 tst_drawing makes the pictures of tests/golden anew;
 * look at them before they are committed.
 */
class DrawingTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    // What works
    void screensLookRight_data();
    void screensLookRight();
    void playingDrawsItsProgressAlone();

    // What goes wrong
    void restDrawsNothing_data();
    void restDrawsNothing();
};

namespace {

const QPoint queueButton(40, 603);
const QPoint equaliserButton(345, 603);

HalvoraPlayer *playerOf(const ClientWindow &client)
{
    return client.item("NowPlaying"_s)->property("player").value<HalvoraPlayer *>();
}

bool hasPictures(HalvoraPlayer *player, int tracks)
{
    const QList<Song *> songs = listed(player->queue());
    const auto hasPicture = [](const Song *song) { return !song->smallImgPath().isEmpty(); };
    return songs.size() == tracks && std::all_of(songs.begin(), songs.end(), hasPicture)
        && ImageDownloader::instance()->isCached(player->currentSong()->smallImgPath());
}

// Twelve tracks of different albums, the third of which is paused after a third of its time. The queue stands before
// it is fetched: rows of one that comes again have no pictures. Of two rows that wait for the same picture one stays
// without: only one output plays it.
bool showPausedPlayer(ClientWindow *client)
{
    QVector<CatalogueTrack> tracks;
    for (int position = 40; position < 240; position += 20)
        tracks << client->server.catalogue().track(position);
    client->server.tracklist()->add(tracks);
    Playback *playback = client->server.playback();
    playback->setTimeScale(0.001);
    client->device.setEqualizer(3, 5, -6, 7, 12);
    client->device.setRoute(12, 9);
    if (!client->showPlayer())
        return false;
    playback->play(3);
    playback->seek(playback->current().track.lengthMs / 3);
    const auto progress = [&] { return client->item("CoverImgView"_s)->property("progress").toReal(); };
    if (!QTest::qWaitFor([&] { return progress() > 0.3; }))
        return false;
    playback->pause();
    return QTest::qWaitFor([&] { return hasPictures(playerOf(*client), 12); });
}

} // namespace

// A tick so long that the queue is fetched only once in a test.
void DrawingTest::initTestCase()
{
    PlayerTiming::current() = {500, 25, 50};
}

void DrawingTest::screensLookRight_data()
{
    QTest::addColumn<QPoint>("button");
    QTest::addColumn<int>("tab");
    QTest::newRow("player") << QPoint() << 1;
    QTest::newRow("queue") << queueButton << 1;
    QTest::newRow("equaliser") << equaliserButton << 1;
    QTest::newRow("outputs") << QPoint() << 0;
}

void DrawingTest::screensLookRight()
{
    QFETCH(QPoint, button);
    QFETCH(int, tab);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    ClientWindow client;
    QVERIFY(showPausedPlayer(&client));
    client.selectTab(tab);
    if (!button.isNull())
        client.click(button);
    if (Golden::isRenewing()) {
        QTest::qWait(3000); // for the pictures, which come one by one
        Golden::save(client.picture(), name);
        QSKIP("a new picture, to be looked at");
    }
    if (QTest::qWaitFor([&] { return Golden::complaint(client.picture(), name).isEmpty(); }))
        return;
    const QImage seen = client.picture();
    const QString complaint = Golden::complaint(seen, name);
    QFAIL(qPrintable("%1; see %2"_s.arg(complaint, Golden::writeDifference(seen, name))));
}

namespace {

class FrameCount final
{
public:
    explicit FrameCount(ClientWindow *client) : m_client(client)
    {
        QObject::connect(&client->view, &QQuickWindow::frameSwapped, &m_context, [this] { ++m_frames; });
        client->device.setPollInterval(25);
    }

    int frames() const { return m_frames; }

    // Whether there comes a time in which the device has asked twenty times and nothing has been drawn.
    bool comesToRest()
    {
        return QTest::qWaitFor([this] {
            const int frames = m_frames;
            const int heard = beats();
            return QTest::qWaitFor([&] { return beats() >= heard + 20; }) && m_frames == frames;
        });
    }

private:
    int beats() const { return m_client->device.messages().count("UI_ALIVE"_s); }

    ClientWindow *m_client;
    QObject m_context;
    int m_frames = 0;
};

} // namespace

void DrawingTest::playingDrawsItsProgressAlone()
{
    PlayerWindow client;
    client.server.playback()->pause();
    FrameCount count(&client);
    QVERIFY(count.comesToRest());
    QSignalSpy steps(client.item("CoverImgView"_s), SIGNAL(progressChanged()));
    const int frames = count.frames();
    client.server.playback()->setTimeScale(5);
    client.server.playback()->resume();
    QTRY_VERIFY(steps.size() >= 8);
    // One for the button that turns to pause, and each step takes one, or two when its ring is painted late.
    QVERIFY2(count.frames() - frames <= 2 * steps.size() + 2, "nothing but the ring is drawn");
}

void DrawingTest::restDrawsNothing_data()
{
    QTest::addColumn<QPoint>("button");
    QTest::addColumn<QString>("text"); // what shows that it has come
    QTest::newRow("paused") << QPoint() << QString();
    QTest::newRow("queue open") << queueButton << QString();
    QTest::newRow("equaliser open") << equaliserButton << QString();
    QTest::newRow("AirPlay") << QPoint() << "Tide"_s;
    QTest::newRow("without player") << QPoint() << "Radio"_s;
}

void DrawingTest::restDrawsNothing()
{
    QFETCH(QPoint, button);
    QFETCH(QString, text);
    PlayerWindow client;
    FrameCount count(&client);
    client.server.playback()->pause();
    if (!button.isNull())
        client.click(button);
    if (text == "Tide"_s)
        client.device.setAirPlay(2, {true, text, "Shore"_s, "Ann"_s, {}});
    else if (text == "Radio"_s)
        client.device.setRoute(3, 9);
    QTRY_VERIFY(text.isEmpty() || client.showsText(text));
    QVERIFY(count.comesToRest());
}

HALVORA_SUITE_MAIN(DrawingTest)

#include "tst_drawing.moc"
