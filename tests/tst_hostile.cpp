// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/HostilePeer.h"
#include "support/Memory.h"
#include "support/Suite.h"

#include "images/ImageDownloader.h"
#include "link/Device.h"
#include "link/FrameCodec.h"
#include "link/HalvoraConnThread.h"
#include "player/HalvoraPlayer.h"
#include "player/PlayerTiming.h"
#include "player/Reclaimer.h"
#include "simulator/HugePng.h"

#include <QBuffer>
#include <QQmlEngine>
#include <QQuickItem>

#include <limits>

#include <malloc.h>

namespace {

using Connection = HostilePeer::Connection;
using Attack = std::function<void(Connection &)>;

// A sanitizer's own memory is no measure, and it takes its time.
#ifdef __SANITIZE_ADDRESS__
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

constexpr qint64 mebibyte = 1024 * 1024;
constexpr qint64 hundred = 100 * mebibyte;
constexpr qint64 flood = isSanitized ? hundred / 10 : hundred;
constexpr double margin = isSanitized ? std::numeric_limits<double>::infinity()
                                      : 24; // MiB: what the libraries' own caches and the allocator may keep

const QByteArray frameEnd = FrameCodec::deviceTerminator;

QByteArray frame(const QString &text)
{
    return FrameCodec::encryptText(text) + frameEnd;
}

class Cell final : public QQuickItem
{
    Q_OBJECT

public:
    Q_INVOKABLE void updateImage(const QVariant &uri) { told << uri.toString(); }

    QStringList told;
};

// Tells, at its end, for how long the GUI thread was away at most and what the process has kept.
class Watch final
{
public:
    Watch() : m_before(settled())
    {
        m_clock.start();
        m_beat.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_beat, &QTimer::timeout, &m_beat, [this] { look(); });
        m_beat.start(10);
    }

    double grown() const { return Memory::resident() - m_before; }

    double kept()
    {
        look();
        m_beat.stop();
        const double most = m_most;
        const double kept = settled() - m_before;
        qInfo("longest gap %lld ms, %.0f MiB more at most, %.1f MiB kept", m_gap, most - m_before, kept);
        return kept;
    }

private:
    void look()
    {
        m_gap = qMax(m_gap, m_clock.restart());
        m_most = qMax(m_most, Memory::resident());
    }

    static double settled()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        malloc_trim(0);
        return Memory::resident();
    }

    double m_before;
    QElapsedTimer m_clock;
    QTimer m_beat;
    qint64 m_gap = 0;
    double m_most = 0;
};

QByteArray picture(const char *type)
{
    QImage image(800, 800, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 7, y * 11, x * y));
    }
    QBuffer buffer;
    image.save(&buffer, type);
    return buffer.data();
}

void answer(Connection &connection, const QByteArray &body)
{
    connection.send("HTTP/1.1 200 OK\r\nContent-Type: image/png\r\nContent-Length: "
                    + QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
}

void evictPictures()
{
    for (int i = 0; i < 51; ++i)
        ImageDownloader::instance()->addToCache("small %1"_s.arg(i), QImage(1, 1, QImage::Format_RGB32));
}

} // namespace

Q_DECLARE_METATYPE(Attack)

/**
 * Peers that send too much, or for ever. The client does not crash, serves the next good message and gives back the
 * memory. How long the GUI thread was away is told, and not judged here.
 */
class HostileTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void device_data();
    void device();
    void musicServer_data();
    void musicServer();
    void pictures_data();
    void pictures();

private:
    QQmlEngine m_engine; // with none, what lists have dropped is kept
};

// Large blocks go back to the system at once; else each arena would keep some, and tell nothing of what the client holds.
void HostileTest::initTestCase()
{
    mallopt(M_MMAP_THRESHOLD, int(mebibyte / 4));
    PlayerTiming::current() = {10, 20, 20};
    Reclaimer::begin(&m_engine);
}

void HostileTest::device_data()
{
    QTest::addColumn<Attack>("attack");
    QTest::addColumn<bool>("hastens"); // the client is started again in the middle of it
    const auto row = [](const char *name, const Attack &attack, bool hastens = false) {
        QTest::newRow(name) << attack << hastens;
    };
    const QByteArray letters(65536, 'A');
    // Cipher text of one block again and again is no announcement; of an announcement it goes on as one.
    const QByteArray shown = FrameCodec::encryptText("7|BROAD|99|0|"_s + QString(3000, QLatin1Char('x')))
                                 .left(4096);
    // No frame has a greatest size, so a stream without an end is kept for as long as the connection stands.
    row("no terminator", [=](Connection &peer) { peer.sendMuch(letters, flood); });
    row(
        "no terminator, and a restart", [=](Connection &peer) { peer.sendMuch(letters, flood); }, true);
    row("a long message", [=](Connection &peer) {
        peer.sendMuch(letters, flood);
        peer.send(frameEnd);
    });
    // A fragment counts as what it says so far, so each read of an announcement is one.
    row("an announcement without end", [=](Connection &peer) {
        peer.send(shown);
        peer.sendMuch(letters, flood);
    });
    row("nothing but terminators",
        [=](Connection &peer) { peer.sendMuch("%%%%%%%%%%%%%%%%%%%%%%%%%%%%%%%%%%%%", mebibyte); });
    row("a NUL", [=](Connection &peer) {
        peer.send(QByteArray(1, '\0'));
        peer.sendMuch(letters, flood);
    });
    row("a million fields",
        [=](Connection &peer) { peer.send(frame("7|BROAD|99"_s + QString(1000000, QLatin1Char('|')))); });
}

void HostileTest::device()
{
    QFETCH(Attack, attack);
    Watch watch;
    auto peer = std::make_unique<HostilePeer>([attack](Connection &connection, int number) {
        connection.readUntil("&");
        connection.send(frame("7|JOIN"_s));
        if (number == 0)
            return attack(connection);
        connection.send(frame("7|BROAD|500|0"_s));
        connection.waitForTheEnd();
    });
    {
        Device device;
        device.setLocalIp("127.0.0.1"_s);
        device.setLocalPort(peer->port());
        HalvoraConnThread link;
        const QSignalSpy reached(&link, &HalvoraConnThread::firstConnected);
        link.setDevice(&device);
        link.restartLink();
        QFETCH(bool, hastens);
        if (hastens) {
            QTRY_VERIFY_WITH_TIMEOUT(watch.grown() > 0.9 * flood / mebibyte, 60000);
            link.restartLink(); // waits for what the link is at
        }
        QTRY_COMPARE_WITH_TIMEOUT(reached.size(), 1, 120000);
        link.stopLink();
    }
    peer.reset();
    QVERIFY(watch.kept() < margin);
}

void HostileTest::musicServer_data()
{
    QTest::addColumn<Attack>("attack");
    QTest::addColumn<int>("state");   // that a word brings behind it: on the same connection, or on the next
    QTest::addColumn<int>("entries"); // of the queue
    const auto taken = [](const QString &name, const Attack &attack, int entries = 0) {
        QTest::newRow(qPrintable(name)) << attack << int(HalvoraPlayer::Paused) << entries;
    };
    const auto refused = [](const QString &name, const Attack &attack) {
        QTest::newRow(qPrintable(name)) << attack << int(HalvoraPlayer::Playing) << 0;
    };
    const auto filled = [](const QByteArray &head, const QByteArray &piece, qint64 bytes,
                           const QByteArray &tail) {
        return [=](Connection &peer) {
            peer.sendText(head, piece.repeated(int(65536 / piece.size())),
                          bytes / piece.size() * piece.size(), tail);
        };
    };
    // The sixth request of the first poll asks for the queue.
    const QByteArray queue = R"({"jsonrpc":"2.0","id":"5","result":[)";
    const QByteArray text = R"({"event":")";
    const qint64 rest = 24 * mebibyte - text.size() - 2;
    taken("the longest text"_s, filled(text, "x", rest, "\"}"));
    refused("a byte more"_s, filled(text, "x", rest + 1, "\"}"));
    refused("100 MB in frames"_s, [](Connection &peer) {
        const QByteArray frame(65536, 'x');
        for (qint64 sent = 0; sent < hundred; sent += frame.size()) {
            peer.announce(65536, sent == 0 ? '\1' : '\0'); // of a text, and more of it follows
            peer.send(frame);
        }
        peer.announce(0, '\x80'); // the end of it, for those who have taken all
    });
    taken("23 MB of objects"_s, filled(queue + "0", R"(,{"uri":"a"})", 23 * mebibyte, "]}"));
    taken("23 MB of empty lists"_s, filled(queue + "0", ",[]", 23 * mebibyte, "]}"));
    taken(
        "as many playlists as there can be"_s,
        filled(R"({"jsonrpc":"2.0","id":"6","result":[{})", ",{}", (isSanitized ? 2 : 23) * mebibyte, "]}"));
    // Qt's parser goes down to 1024 levels, and takes nothing of what is deeper.
    for (const int levels : {500, 5000, 1000000}) {
        const QByteArray entry = queue + R"({"tlid":1,"track":{"uri":"a","x":)";
        const auto deep = [=](const QByteArray &open, const QByteArray &close) {
            return [=](Connection &peer) {
                peer.sendText(entry + open.repeated(levels) + "0" + close.repeated(levels) + "}}]}");
            };
        };
        taken("%1 lists"_s.arg(levels), deep("[", "]"), levels < 1000);
        taken("%1 objects"_s.arg(levels), deep(R"({"a":)", "}"), levels < 1000);
    }
    taken("a million messages"_s, [](Connection &peer) {
        for (int i = 0; i < 1000 && peer.isOpen(); ++i)
            peer.send(QByteArray("\x81\x02{}", 4).repeated(1000));
    });
    constexpr int entries = 100000;
    QByteArray tracks;
    for (int i = 0; i < entries; ++i)
        tracks += R"({"tlid":)" + QByteArray::number(i) + R"(,"track":{"uri":"a","name":"b"}},)";
    taken("a queue of 100,000"_s, filled(queue + tracks, " ", 0, R"({}]})"), entries);
}

void HostileTest::musicServer()
{
    QFETCH(Attack, attack);
    QFETCH(int, state);
    QFETCH(int, entries);
    Watch watch;
    auto peer = std::make_unique<HostilePeer>([attack](Connection &connection, int number) {
        if (!connection.becomeWebSocket())
            return;
        if (number == 0) {
            connection.readUntil("\x81"); // of its first poll
            attack(connection);
        }
        if (!connection.isOpen())
            return;
        const QByteArray word = number == 0 ? "paused" : "playing";
        connection.sendText(R"({"event":"playback_state_changed","new_state":")" + word + "\"}");
        connection.waitForTheEnd();
    });
    {
        HalvoraPlayer player;
        player.setIpAddress("127.0.0.1"_s);
        player.setPort(QString::number(peer->port()));
        player.startConnection();
        QTRY_COMPARE_WITH_TIMEOUT(player.playPause(), state, 30000);
        QCOMPARE(player.queueTlid().size(), entries);
        player.stopConnection();
        QTRY_VERIFY(peer->served() > 0);
    }
    peer.reset();
    const QPointer<QObject> last = new QObject; // dropped lists are freed one behind the other
    Reclaimer::drop(last);
    QTRY_VERIFY_WITH_TIMEOUT(!last, 30000);
    QVERIFY(watch.kept() < margin);
}

void HostileTest::pictures_data()
{
    QTest::addColumn<Attack>("attack");
    const auto row = [](const char *name, const Attack &attack) { QTest::newRow(name) << attack; };
    const auto body = [](const QByteArray &bytes) { return [=](Connection &peer) { answer(peer, bytes); }; };
    const QByteArray zeroes(65536, '\0');
    row("a bomb", body(HugePng::bytes(20000)));
    QBuffer largest;
    QImage(8000, 8000, QImage::Format_RGB32).save(&largest, "PNG");
    row("the largest that is taken", body(largest.data()));
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    row("endless body", [=](Connection &peer) {
        peer.send(ok + "\r\n");
        peer.sendMuch(zeroes, flood);
    });
    row("endless pieces", [=](Connection &peer) {
        peer.send(ok + "Transfer-Encoding: chunked\r\n\r\n");
        peer.sendMuch("10000\r\n" + zeroes + "\r\n", flood);
    });
    row("endless header", [=](Connection &peer) {
        peer.send(ok);
        peer.sendMuch("X-Name: " + QByteArray(1000, 'x') + "\r\n", 2 * mebibyte);
    });
    row("to itself",
        [=](Connection &peer) { peer.send("HTTP/1.1 302 Found\r\nLocation: /hostile\r\n\r\n"); });
    row("to a file",
        [=](Connection &peer) { peer.send("HTTP/1.1 302 Found\r\nLocation: file:///dev/zero\r\n\r\n"); });
    for (const char *type : {"PNG", "JPG"}) {
        const QByteArray whole = picture(type);
        for (int tenth = 0; tenth < 10; ++tenth)
            QTest::addRow("%s of %d tenths", type, tenth)
                << Attack(body(whole.left(whole.size() * tenth / 10)));
    }
}

void HostileTest::pictures()
{
    QFETCH(Attack, attack);
    allow("Corrupt JPEG data: premature end of data segment");
    const QByteArray good = picture("PNG");
    (void)ImageDownloader::instance();
    Watch watch;
    auto peer = std::make_unique<HostilePeer>([=](Connection &connection, int) {
        connection.readUntil("\r\n\r\n");
        attack(connection);
    });
    // At the same one, the next request may come while it ends its connection, and fail with it.
    auto other = std::make_unique<HostilePeer>([=](Connection &connection, int) {
        connection.readUntil("\r\n\r\n");
        answer(connection, good);
    });
    {
        Cell cell;
        const QString url = "http://127.0.0.1:%1/"_s;
        const QString goodUrl = url.arg(other->port());
        ImageDownloader::instance()->requestImage(url.arg(peer->port()), &cell);
        QTRY_VERIFY_WITH_TIMEOUT(peer->served() > 0, 60000); // the network asks again where an answer was cut
        ImageDownloader::instance()->requestImage(goodUrl, &cell);
        QTRY_VERIFY_WITH_TIMEOUT(cell.told.contains(goodUrl), 60000);
        QCOMPARE(ImageDownloader::instance()->cachedImage(goodUrl).size(), QSize(800, 800));
        evictPictures();
    }
    peer.reset();
    other.reset();
    QVERIFY(watch.kept() < margin);
}

HALVORA_SUITE_MAIN(HostileTest)
#include "tst_hostile.moc"
