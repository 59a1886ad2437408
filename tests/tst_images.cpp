// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "images/AsyncImageProvider.h"
#include "images/ImageDownloader.h"
#include "images/ImageRequest.h"
#include "images/PictureDecoder.h"
#include "simulator/ArtworkServer.h"
#include "support/Suite.h"

#include <QBuffer>
#include <QQuickItem>

namespace {

using Spoil = void (*)(ArtworkFaults &);

// An item of the screens, as far as the downloader knows it.
class Cell final : public QQuickItem
{
    Q_OBJECT

public:
    Q_INVOKABLE void updateImage(const QVariant &uri) { told << uri.toString(); }

    QStringList told;
};

ImageDownloader *downloader()
{
    return ImageDownloader::instance();
}

QImage picture(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    return image;
}

QByteArray png(int width, int height)
{
    QBuffer buffer;
    picture(width, height).save(&buffer, "PNG");
    return buffer.data();
}

// Fills the cache with `count` small pictures and returns their keys, oldest first.
QStringList fill(const QString &prefix, int count)
{
    QStringList keys;
    for (int i = 0; i < count; ++i) {
        keys << prefix + QString::number(i);
        downloader()->addToCache(keys.last(), picture(1, 1));
    }
    return keys;
}

QStringList cached(const QStringList &keys)
{
    QStringList found;
    std::copy_if(keys.begin(), keys.end(), std::back_inserter(found),
                 [](auto key) { return downloader()->isCached(key); });
    return found;
}

// A picture server of its own for each test, so that no address comes twice.
struct Gallery
{
    Gallery()
    {
        QVERIFY(server.listen());
        server.setFile("/a.png"_s, "image/png", png(200, 100));
        url = server.url("/a.png"_s);
    }

    bool fetched(int times) const
    {
        return Waiting::comes([&] { return server.requestCount("/a.png"_s) == times; });
    }

    bool isCached() const
    {
        return Waiting::comes([&] { return downloader()->isCached(url); }, 20000);
    }

    // Until every call that is under way to an item has been made.
    void settle()
    {
        Cell marker;
        const QString other = server.url("/settled.png"_s);
        server.faults() = {};
        server.setFile("/settled.png"_s, "image/png", png(1, 1));
        downloader()->requestImage(other, &marker);
        QVERIFY(Waiting::comes([&] { return !marker.told.isEmpty(); }));
    }

    ArtworkServer server;
    QString url;
    Cell cell;
};

// For one test.
struct Patience
{
    explicit Patience(int milliseconds) { downloader()->setPatience(milliseconds); }
    ~Patience() { downloader()->setPatience(ImageDownloader::usualPatience); }
};

} // namespace

class TestImages final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    // What works

    void pictureIsFetchedOnceAndTold();
    void oneRequestAndOneItemAnAddress();
    void decodingNeedsNoGuiThread();
    void cacheIsFirstInFirstOut();
    void providerFits();
    void bitmapOfEitherDirection();

    // What goes wrong

    void failedDownloadCanBeTriedAgain();
    void silentServerIsGivenUp();
    void slowServerIsNot();
    void noPictureIsKeptAsNone();
    void discarding();
    void itemThatDiesIsNotTold();
    void replyIsKeptUnderItsOwnAddress();
    void providerWithoutThePicture();
    void bodiesBeyondTheBound();
};

void TestImages::pictureIsFetchedOnceAndTold()
{
    Gallery gallery;
    requestPicture(gallery.url, &gallery.cell);
    QTRY_VERIFY(!gallery.cell.told.isEmpty());
    QCOMPARE(gallery.cell.told, QStringList{gallery.url});
    QCOMPARE(downloader()->cachedImage(gallery.url).size(), QSize(200, 100));
    Cell second;
    requestPicture(gallery.url, &second);
    QCOMPARE(second.told, QStringList{gallery.url}); // at once
    gallery.settle();
    QCOMPARE(gallery.server.requestCount("/a.png"_s), 1);
}

void TestImages::oneRequestAndOneItemAnAddress()
{
    Gallery gallery;
    Cell second;
    downloader()->requestImage(gallery.url, &gallery.cell);
    downloader()->requestImage(gallery.url, &second);
    downloader()->requestImage(gallery.url, &gallery.cell);
    QVERIFY(gallery.isCached());
    gallery.settle();
    QCOMPARE(gallery.cell.told, QStringList{gallery.url});
    QCOMPARE(second.told, QStringList());
    QCOMPARE(gallery.server.requestCount("/a.png"_s), 1);
}

// The server has a thread of its own here, and this one makes no turn of its event loop.
void TestImages::decodingNeedsNoGuiThread()
{
    QThread thread;
    QObject context;
    context.moveToThread(&thread);
    thread.start();
    std::unique_ptr<ArtworkServer> server;
    QString url;
    const auto inThread = [&](auto job) {
        QMetaObject::invokeMethod(&context, job, Qt::BlockingQueuedConnection);
    };
    inThread([&] {
        server = std::make_unique<ArtworkServer>();
        server->listen();
        server->setFile("/a.png"_s, "image/png", png(2000, 2000));
        url = server->url("/a.png"_s);
    });
    Cell cell;
    requestPicture(url, &cell);
    const QDeadlineTimer deadline(10000);
    while (!downloader()->isCached(url) && !deadline.hasExpired())
        QThread::yieldCurrentThread();
    QCOMPARE(downloader()->cachedImage(url).size(), QSize(2000, 2000));
    QCOMPARE(cell.told, QStringList());
    QVERIFY(Waiting::comes([&] { return !cell.told.isEmpty(); }));
    inThread([&] { server.reset(); });
    thread.quit();
    thread.wait();
}

void TestImages::cacheIsFirstInFirstOut()
{
    fill("flush"_s, 50);
    const QStringList twice = fill("twice"_s, 1);
    const QStringList between = fill("between"_s, 10);
    fill("twice"_s, 1);
    const QStringList later = fill("later"_s, 38);
    QCOMPARE(cached(twice + between + later).size(), 49);
    QVERIFY(!downloader()->cachedImage(twice.first()).isNull()); // a hit protects nothing
    const QStringList last = fill("last"_s, 1);
    QCOMPARE(cached(twice + between + later + last), between + later + last); // nor does a newer place
    fill("turn"_s, 10);
    QCOMPARE(cached(between), QStringList());
    fill("second"_s, 1); // takes the newer place away, where there is no picture any more
    QCOMPARE(cached(later), later);
}

void TestImages::providerFits()
{
    downloader()->addToCache("http://fits"_s, picture(200, 100));
    const QPair<QSize, QSize> table[]{{{}, {200, 100}},     {{50, -1}, {200, 100}}, {{-1, 50}, {200, 100}},
                                      {{50, 50}, {50, 25}}, {{500, 20}, {40, 20}},  {{400, 400}, {400, 200}}};
    for (const auto &row : table) { // requested and result
        QSize size;
        QCOMPARE(AsyncImageProvider().requestImage("http://fits"_s, &size, row.first).size(), row.second);
        QCOMPARE(size, row.second);
    }
    QVERIFY(!AsyncImageProvider().requestImage("http://fits"_s, nullptr, {}).isNull());
}

// Bitmaps begin with their lowest line, or with a negative height and their topmost.
void TestImages::bitmapOfEitherDirection()
{
    QImage drawn(2, 2, QImage::Format_RGB32);
    drawn.fill(Qt::red);
    drawn.setPixelColor(0, 0, Qt::green);
    QBuffer buffer;
    QVERIFY(drawn.save(&buffer, "BMP"));
    QByteArray body = buffer.data();
    QCOMPARE(PictureDecoder::decoded(body).convertToFormat(drawn.format()), drawn);
    body.replace(22, 4, QByteArray::fromHex("feffffff")); // -2
    QCOMPARE(PictureDecoder::decoded(body).convertToFormat(drawn.format()), drawn.mirrored());
}

void TestImages::failedDownloadCanBeTriedAgain()
{
    for (const Spoil spoil : {Spoil([](ArtworkFaults &faults) { faults.notFound = true; }),
                              Spoil([](ArtworkFaults &faults) { faults.truncatedBody = true; }),
                              Spoil([](ArtworkFaults &faults) { faults.lengthLie = 1000; })}) {
        Gallery gallery;
        spoil(gallery.server.faults());
        downloader()->requestImage(gallery.url, &gallery.cell);
        QVERIFY(gallery.fetched(1));
        gallery.server.faults() = {};
        // The failure is silent; once it is through, a request goes out again.
        QVERIFY(Waiting::comes([&] {
            downloader()->requestImage(gallery.url, &gallery.cell);
            return gallery.server.requestCount("/a.png"_s) == 2;
        }));
        QTRY_VERIFY(!gallery.cell.told.isEmpty());
        QCOMPARE(gallery.cell.told, QStringList{gallery.url}); // once, and not for the failure
    }
}

void TestImages::silentServerIsGivenUp()
{
    Gallery gallery;
    gallery.server.faults().delayMs = 3600000;
    downloader()->requestImage(gallery.url, &gallery.cell);
    QVERIFY(gallery.fetched(1));
    gallery.server.faults() = {};
    const Patience patience(1000);
    QVERIFY(Waiting::comes([&] {
        if (gallery.cell.told.isEmpty())
            downloader()->requestImage(gallery.url, &gallery.cell);
        return !gallery.cell.told.isEmpty();
    }));
    QCOMPARE(gallery.server.requestCount("/a.png"_s), 2);
}

// Seven pictures, one more than there are connections, each of which takes longer than anybody waits for nothing.
void TestImages::slowServerIsNot()
{
    const Patience patience(1000);
    Gallery gallery;
    QStringList paths;
    for (int i = 0; i < 7; ++i) {
        paths << "/%1.png"_s.arg(i);
        gallery.server.setFile(paths.last(), "image/png", png(200, 100).leftJustified(1500, ' '));
    }
    gallery.server.faults().slowBytesPerTick = 10;
    for (const QString &path : qAsConst(paths))
        downloader()->requestImage(gallery.server.url(path), &gallery.cell);
    QTRY_COMPARE_WITH_TIMEOUT(gallery.cell.told.size(), 7, 30000);
}

void TestImages::noPictureIsKeptAsNone()
{
    for (const Spoil spoil : {Spoil([](ArtworkFaults &faults) { faults.noPicture = true; }),
                              Spoil([](ArtworkFaults &faults) { faults.hugeDimensions = true; }),
                              Spoil([](ArtworkFaults &faults) { faults.lengthLie = 40 * 1024 * 1024; }),
                              Spoil([](ArtworkFaults &faults) { faults.endlessBody = true; })}) {
        Gallery gallery;
        gallery.server.setFile("/a.png"_s, "image/png", png(200, 100).leftJustified(4 * 1024 * 1024, ' '));
        spoil(gallery.server.faults());
        downloader()->requestImage(gallery.url, &gallery.cell);
        QVERIFY(gallery.isCached());
        QVERIFY(downloader()->cachedImage(gallery.url).isNull());
        QTRY_COMPARE(gallery.cell.told.size(), 1);
        gallery.server.faults() = {};
        requestPicture(gallery.url, &gallery.cell);
        QCOMPARE(gallery.cell.told.size(), 2);
        gallery.settle();
        QCOMPARE(gallery.server.requestCount("/a.png"_s), 1); // not again while it is kept
    }
}

void TestImages::discarding()
{
    Gallery gallery;
    Cell stranger;
    for (const QString &unknown : {QString(), "http://unknown"_s})
        downloader()->discardImage(unknown, &gallery.cell);
    downloader()->requestImage(gallery.url, &gallery.cell);
    downloader()->discardImage(gallery.url, &stranger); // not the one that waits
    QTRY_COMPARE(gallery.cell.told.size(), 1);

    Gallery other;
    downloader()->requestImage(other.url, &other.cell);
    downloader()->discardImage(other.url, &other.cell);
    QVERIFY(other.isCached()); // kept all the same
    other.settle();
    QCOMPARE(other.cell.told, QStringList());

    Gallery third;
    downloader()->requestImage(third.url, &third.cell);
    downloader()->discardImage(third.url, &third.cell);
    downloader()->requestImage(third.url, &stranger); // while the first request runs
    QVERIFY(third.fetched(2));
    QVERIFY(Waiting::comes([&] { return !stranger.told.isEmpty(); }));
    QCOMPARE(third.cell.told, QStringList());
}

void TestImages::itemThatDiesIsNotTold()
{
    Gallery gallery;
    auto cell = std::make_unique<Cell>();
    downloader()->requestImage(gallery.url, cell.get());
    QVERIFY(gallery.fetched(1));
    cell.reset();
    QVERIFY(gallery.isCached());
    gallery.settle();
}

void TestImages::replyIsKeptUnderItsOwnAddress()
{
    Gallery gallery;
    const QString asked = QString(gallery.url).replace("http:"_s, "HTTP:"_s);
    downloader()->requestImage(asked, &gallery.cell);
    QVERIFY(gallery.isCached()); // under the text that QUrl gives
    gallery.settle();
    QVERIFY(!downloader()->isCached(asked));
    QCOMPARE(gallery.cell.told, QStringList());
}

void TestImages::providerWithoutThePicture()
{
    QSize size(7, 9);
    QVERIFY(AsyncImageProvider().requestImage("http://missing"_s, &size, QSize(10, 10)).isNull());
    QCOMPARE(size, QSize(7, 9));
    downloader()->addToCache("http://null"_s, QImage());
    QVERIFY(AsyncImageProvider().requestImage("http://null"_s, &size, QSize()).isNull());
    QCOMPARE(size, QSize(0, 0));
}

void TestImages::bodiesBeyondTheBound()
{
    QByteArray body = png(20, 10);
    QCOMPARE(PictureDecoder::decoded(body).size(), QSize(20, 10));
    body.append(QByteArray(int(PictureDecoder::maxBytes) - body.size(), ' '));
    QCOMPARE(PictureDecoder::decoded(body).size(), QSize(20, 10));
    QVERIFY(PictureDecoder::decoded(body + ' ').isNull());
    QVERIFY(PictureDecoder::decoded(QByteArray()).isNull());
    for (const int width :
         {8000, 8001}) { // of one bit a pixel: small enough to be read, were it not for the bound
        QImage image(width, 8000, QImage::Format_Mono);
        image.fill(1);
        QBuffer buffer;
        QVERIFY(image.save(&buffer, "PNG"));
        QCOMPARE(PictureDecoder::decoded(buffer.data()).isNull(), width > 8000);
    }
}

HALVORA_SUITE_MAIN(TestImages)
#include "tst_images.moc"
