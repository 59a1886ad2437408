// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "images/BackupImageDownloader.h"
#include "player/Album.h"
#include "player/Song.h"
#include "simulator/ArtworkServer.h"
#include "support/ObjectCount.h"
#include "support/Rows.h"
#include "support/Suite.h"

#include <QProcess>

#include <algorithm>

namespace {

using Spoil = void (*)(ArtworkFaults &);

const QString tail = "&method=album.getInfo&api_key=e94b07d1c3a26f8850dd13f7a8c642b9&format=json"_s;
const QString before = "640=http://old"_s; // what every item has until its answer comes

void pointTo(const QString &endpoint)
{
    qputenv("HALVORA_LASTFM_ENDPOINT", endpoint.toUtf8());
}

QString target(const QString &artist, const QString &album)
{
    return "/2.0/?artist="_s + artist + "&album="_s + album + tail;
}

// An answer with these entries as its pictures.
QByteArray answer(const QByteArray &entries)
{
    return R"({"album":{"name":"N","image":[)" + entries + "]}}";
}

QByteArray small(const QByteArray &uri)
{
    return answer(R"({"#text":")" + uri + R"(","size":"small"})");
}

// An item's pictures by ascending width.
QString tableOf(const PlayerItem &item)
{
    QList<int> widths = item.images->keys();
    std::sort(widths.begin(), widths.end());
    QStringList entries;
    for (const int width : widths)
        entries << "%1=%2"_s.arg(width).arg(item.images->value(width));
    return entries.join(QLatin1Char(' '));
}

std::unique_ptr<PlayerItem> makeItem(const QString &type, const QString &artist, const QString &album)
{
    std::unique_ptr<PlayerItem> item(type == "track"_s ? static_cast<PlayerItem *>(new Song) : new Album);
    item->setType(type);
    item->setName(type == "track"_s ? "Name of the track"_s : album);
    item->setProperty("album", album);
    item->setProperty("artistsString", artist);
    item->images->insert(640, "http://old"_s);
    return item;
}

// The web service, and a batch for it.
struct Service
{
    Service()
    {
        QVERIFY(server.listen());
        pointTo(server.url(QString()));
    }

    PlayerItem *add(const QString &type, const QString &artist, const QString &album)
    {
        items.push_back(makeItem(type, artist, album));
        return items.back().get();
    }

    void serve(const QString &target, const QByteArray &body)
    {
        server.setFile(target, "application/json", body);
    }

    BackupImageDownloader *start()
    {
        auto *batch = new BackupImageDownloader(nullptr);
        QObject::connect(batch, &BackupImageDownloader::imagesDownloaded, &receiver, [this] { look(); });
        QList<PlayerItem *> list;
        for (const auto &item : items)
            list << item.get();
        batch->requestImages(list);
        return batch;
    }

    // Until the object is gone, behind all it had to say.
    void finish(const QPointer<BackupImageDownloader> &batch)
    {
        QVERIFY(QTest::qWaitFor([&] { return batch.isNull(); }, 30000));
    }

    QStringList run()
    {
        finish(start());
        return seen;
    }

    void look()
    {
        QStringList tables;
        for (const auto &item : items)
            tables << (item ? tableOf(*item) : "gone"_s);
        seen << tables.join(" | "_s);
    }

    ArtworkServer server;
    std::vector<std::unique_ptr<PlayerItem>> items;
    QObject receiver;
    QStringList seen; // the items' pictures at each imagesDownloaded()
};

} // namespace

class TestFallback final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    // What works

    void requests_data();
    void requests();
    void lastOfOneAlbumGetsThePictures();
    void itemsAreFilledInTheirThread();
    void nothingStaysBehind();

    // What goes wrong

    void answers_data();
    void answers();
    void failures();
    void noService();
    void itemDiesMeanwhile();
    void endOfTheProcess();
};

void TestFallback::requests_data()
{
    Rows::add("type artist album path"_s, u8R"(
        ; track ; Some Band ; Name Of Album ; Some+Band&album=Name+Of+Album
        no artist ; track ; ; Name Of Album ; &album=Name+Of+Album
        plus ; track ; A+B ; C ; A+B&album=C
        ampersand ; track ; A & B ; C&D ; A+&amp;+B&album=C&amp;D
        quotes ; track ; "A" <B> ; C's ; &quot;A&quot;+&lt;B&gt;&album=C's
        percent ; track ; A ; 100% Hits ; A&album=100%25+Hits
        encoded ; track ; %41 ; a%20b ; A&album=a%20b
        not ASCII ; track ; Sigur Rós ; 日本 ; Sigur+R%C3%B3s&album=%E6%97%A5%E6%9C%AC
        half a character ; track ; HALF ; NEWLINE ; %ED%A0%80&album=%0A
        number sign, ends the query ; track ; A #1 ; B ; A+
        ; album ; A B ; C D ; A+B&album=C+D
        no type ; ; A ; B ; &album=)"_s);
}

void TestFallback::requests()
{
    QFETCH(const QString, type);
    QFETCH(QString, artist);
    QFETCH(QString, album);
    QFETCH(const QString, path);
    const QString expected = "/2.0/?artist="_s + path + (path == "A+"_s ? QString() : tail);
    artist.replace("HALF"_s, QString(QChar(0xd800)));
    Service service;
    service.add(type, artist, album.replace("NEWLINE"_s, "\n"_s));
    service.serve(expected, small("http://new"));
    QCOMPARE(service.run(), QStringList{"30=http://new"_s}); // the reply has found its item
    QCOMPARE(service.server.requestedPaths(), QStringList{expected});
}

void TestFallback::lastOfOneAlbumGetsThePictures()
{
    Service service;
    for (const QString &album : {"B C"_s, "B+C"_s})
        service.add("album"_s, "A"_s, album);
    service.serve(target("A"_s, "B+C"_s), small("http://new"));
    QCOMPARE(service.run(), QStringList{before + " | 30=http://new"_s});
    QCOMPARE(service.server.requestedPaths().size(), 1);
}

// This thread stands still from the answer to the end of the batch: nobody may touch the item meanwhile.
void TestFallback::itemsAreFilledInTheirThread()
{
    Service service;
    const PlayerItem *item = service.add("album"_s, "A"_s, "B"_s);
    service.serve(target("A"_s, "B"_s), small("new"));
    QSignalSpy asked(&service.server, &ArtworkServer::requestReceived);
    const QPointer<BackupImageDownloader> batch = service.start();
    QVERIFY(asked.wait());
    const auto sockets = service.server.findChildren<QTcpSocket *>();
    for (QTcpSocket *socket : sockets)
        socket->flush();
    QVERIFY(batch->wait(30000));
    QCOMPARE(tableOf(*item), before);
    service.finish(batch);
    QCOMPARE(service.seen, QStringList{"30=new"_s});
}

void TestFallback::nothingStaysBehind()
{
    Service service;
    service.add("album"_s, "A"_s, "B"_s);
    service.serve(target("A"_s, "B"_s), small("http://new"));
    ObjectCount::alive();
    service.run(); // what Qt makes once for all
    QTRY_COMPARE(service.server.findChildren<QTcpSocket *>().size(), 0);
    const int objects = ObjectCount::alive();
    const int running = ObjectCount::threads();
    for (int round = 0; round < 10; ++round) {
        QList<QPointer<BackupImageDownloader>> batches;
        for (int i = 0; i < 20; ++i)
            batches << service.start();
        for (const QPointer<BackupImageDownloader> &batch : qAsConst(batches))
            service.finish(batch);
    }
    QCOMPARE(service.seen.size(), 201);
    QTRY_COMPARE(ObjectCount::alive(), objects);
    QTRY_COMPARE(ObjectCount::threads(), running);
}

void TestFallback::answers_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("table");
    const auto row = [](const char *name, const QByteArray &body, const QString &table) {
        QTest::newRow(name) << body << table;
    };
    const QByteArray good = small("new");
    row("error and album", R"({"error":null,"album":{"image":[{"#text":"a"}]}})", before);
    row("Error is another key", R"({"Error":6,"album":{"image":[{"#text":"a"}]}})", "128=a"_s);
    row("no album", R"({"results":{}})", before);
    row("array", "[" + good + "]", before);
    row("every size",
        answer(R"({"#text":"a","size":"small"},{"#text":"b","size":"medium"},)"
               R"({"#text":"c","size":"large"},{"#text":"d","size":"extralarge"},)"
               R"({"#text":"e","size":"mega"},{"#text":"f","size":""})"),
        "30=a 65=b 128=f 180=c 300=d 350=e"_s); // the later one wins
    row("another size", answer(R"({"#text":"b","size":"x"},{"#text":"a","size":"Small"})"), "128=a"_s);
    row("without address", answer(R"({"size":"large"},{"#text":7},7,null,{"#text":"a","size":"small"})"),
        "30=a"_s);
    row("half", good.left(good.size() / 2), before);
    row("nothing", QByteArray(), before);
    row("deep", QByteArray(100000, '['), before);
    row("array is no array", R"({"album":{"image":"http://a"}})", QString());
    row("album is no object", R"({"album":null})", QString());
    row("addresses empty", answer(R"({"#text":"","size":"small"})"), QString());
    row("just small enough", good.leftJustified(BackupImageDownloader::maxBytes, ' '), "30=new"_s);
    row("too large", good.leftJustified(BackupImageDownloader::maxBytes + 1, ' '), before);
}

void TestFallback::answers()
{
    QFETCH(const QByteArray, body);
    QFETCH(const QString, table);
    Service service;
    service.add("album"_s, "A"_s, "B"_s);
    service.serve(target("A"_s, "B"_s), body);
    QCOMPARE(service.run(), QStringList{table});
}

// One of two items fails in each of these ways: it keeps its pictures, and holds nobody up.
void TestFallback::failures()
{
    const Spoil spoils[] = {
        [](ArtworkFaults &faults) { faults.notFound = true; },
        [](ArtworkFaults &faults) { faults.truncatedBody = true; },
        [](ArtworkFaults &faults) { faults.lengthLie = 1000; },
        [](ArtworkFaults &faults) { faults.lengthLie = 1 << 24; },
        [](ArtworkFaults &faults) { faults.endlessBody = true; },
        [](ArtworkFaults &faults) { faults.redirectTo = target("A"_s, "Good"_s); }, // is not followed
    };
    for (const Spoil &spoil : spoils) {
        Service service;
        service.add("album"_s, "A"_s, "Bad"_s);
        service.add("album"_s, "A"_s, "Good"_s);
        service.serve(target("A"_s, "Bad"_s), small("bad").leftJustified(256 * 1024, ' '));
        service.serve(target("A"_s, "Good"_s), small("good"));
        spoil(service.server.faults());
        service.server.faults().onlyPath = "Bad"_s;
        QCOMPARE(service.run(), QStringList{before + " | 30=good"_s});
        QCOMPARE(service.server.requestedPaths().size(), 2);
    }
}

void TestFallback::noService()
{
    QTcpServer closed;
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    const QString refused = "http://127.0.0.1:%1"_s.arg(closed.serverPort());
    closed.close();
    for (const QString &endpoint : {refused, "http://"_s, "http://[:"_s, "nothing://127.0.0.1"_s}) {
        Service service;
        service.add("album"_s, "A"_s, "B"_s);
        service.add("album"_s, "A"_s, "C"_s);
        pointTo(endpoint);
        QCOMPARE(service.run(), QStringList{before + " | "_s + before});
    }
    Service empty;
    QCOMPARE(empty.run(), QStringList{QString()});
}

// And so does a view that waits for the batch.
void TestFallback::itemDiesMeanwhile()
{
    Service service;
    service.add("album"_s, "A"_s, "B"_s);
    service.add("album"_s, "A"_s, "C"_s);
    for (const QString &album : {"B"_s, "C"_s})
        service.serve(target("A"_s, album), small("new"));
    auto view = std::make_unique<PlayerItem>();
    int told = 0;
    connect(view.get(), &PlayerItem::smallImgPathChanged, this, [&] { ++told; });
    connect(&service.server, &ArtworkServer::requestReceived, this, [&] {
        service.items.front().reset();
        view.reset();
    });
    BackupImageDownloader *batch = service.start();
    connect(batch, SIGNAL(imagesDownloaded()), view.get(), SIGNAL(smallImgPathChanged()));
    service.finish(batch);
    QCOMPARE(service.seen, QStringList{"gone | 30=new"_s});
    QCOMPARE(told, 0);
}

void TestFallback::endOfTheProcess()
{
    for (const QString &stage : {"asked"_s, "waiting"_s, "answered"_s}) {
        QProcess program;
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QCoreApplication::applicationFilePath(), {"--end-when"_s, stage});
        QVERIFY(program.waitForFinished(30000));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.readAll(), QByteArray());
        QCOMPARE(program.exitCode(), 0);
    }
}

// A program that ends with a batch at one of its stages: 0 if the batch ended with the application object.
static int endWhen(const QByteArray &stage, int argc, char **argv)
{
    QPointer<BackupImageDownloader> batch;
    {
        const QCoreApplication application(argc, argv);
        QTcpServer silent;
        if (!silent.listen(QHostAddress::LocalHost))
            return 2;
        pointTo("http://127.0.0.1:%1"_s.arg(silent.serverPort()));
        Album item;
        batch = new BackupImageDownloader(nullptr);
        if (stage == "answered")
            silent.close();
        batch->requestImages({&item});
        if (stage == "waiting" && !silent.waitForNewConnection(30000))
            return 3;
        if (stage == "answered" && !batch->wait(30000))
            return 4;
    }
    return batch ? 1 : 0;
}

int main(int argc, char **argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--end-when") == 0)
        return endWhen(argv[2], argc, argv);
    return runSuite(argc, argv, [] { return std::make_unique<TestFallback>(); });
}

#include "tst_fallback.moc"
