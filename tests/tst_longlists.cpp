// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/LibraryRows.h"
#include "navigation/SectionItems.h"
#include "player/JsonReader.h"
#include "support/Listed.h"
#include "support/Studio.h"
#include "support/Suite.h"

#include <QJsonArray>
#include <QSignalSpy>
#include <QtTest>

// Long lists are read from their text. What comes out, and what is dropped, is what Qt's parser makes of the
// same text.

namespace {

JsonText whole(const QString &text)
{
    return {text, 0, text.size()};
}

QString describe(const PlayerItem *item)
{
    QStringList texts{item->uri(), item->name(), item->type()};
    if (const auto *song = qobject_cast<const Song *>(item)) {
        texts << song->albumUri() << song->album() << song->artistsUri() << song->artists()
              << song->artistsString() << QString::number(song->duration());
    }
    return texts.join(QLatin1Char('|'));
}

QString describe(HalvoraPlayer *player)
{
    QStringList texts;
    const QList<int> tlids = player->queueTlid();
    const QList<Song *> songs = listed(player->queue());
    for (int i = 0; i < songs.size(); ++i)
        texts << QString::number(tlids.at(i)) + QLatin1Char(' ') + describe(songs.at(i));
    return texts.join(QLatin1Char('\n'));
}

QString describe(const LibraryRows &rows)
{
    QStringList texts{rows.types};
    for (const QString &type : rows.types) {
        const SectionItems *section = rows.sections.value(type);
        texts << section->itemUris;
        for (const PlayerItem *item : section->items)
            texts << describe(item);
    }
    return texts.join(QLatin1Char('\n'));
}

void release(const LibraryRows &rows)
{
    for (SectionItems *section : rows.sections)
        section->release();
}

// A reply whose list is long enough to be read from its text: an entry that counts, and many that do not.
QString reply(const QString &head, const QString &result)
{
    return head + ",\"result\":["_s + result + ",{\"tlid\":9,\"padding\":\""_s
        + QString(5000, QLatin1Char('p')) + "\"}]}"_s;
}

QString replyHead(int id)
{
    return R"({"jsonrpc":"2.0","id":"%1")"_s.arg(id);
}

const QString entries = R"([{"tlid":1,"track":%1},{"tlid":2,"track":{"name":"B","uri":"u:2"}}])"_s;

} // namespace

class ListReceiver final : public QObject, public LongReplyReader
{
    Q_OBJECT

public:
    Q_INVOKABLE void browseList(int id, QJsonValue) { calls << "%1 read"_s.arg(id); }
    bool readLongReply(const char *handler, int id, const JsonText &) override
    {
        calls << "%1 unread for %2"_s.arg(id).arg(QLatin1String(handler));
        return reads;
    }

    bool reads = true;
    QStringList calls;
};

class LongLists final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    // What works
    void isReadAsQtReadsIt_data();
    void isReadAsQtReadsIt();
    void rowsAreReadAsQtReadsThem();
    void longReplyOnTheSocketMakesTheQueue();
    void longRepliesGoUnreadToWhoReadsThem();

    // What goes wrong
    void isLeftToQt_data();
    void isLeftToQt();
    void rowsAreLeftToQt();
    void brokenLongReplyChangesNothing_data();
    void brokenLongReplyChangesNothing();
};

void LongLists::isReadAsQtReadsIt_data()
{
    QTest::addColumn<QString>("text");
    for (const QString &text :
         {"[]"_s, R"([{"tlid":3},{}])"_s, " [ { \"tlid\" : 7 ,\r\n\t\"track\" : { \"uri\" : \"u\" } } ] "_s,
          R"([{"tlid":5,"track":{"uri":"a"}},{"tlid":5,"track":{"uri":"b"}}])"_s,
          R"([{"tlid":5,"track":{"uri":"a"}},{"track":{"uri":"b"},"tlid":4}])"_s})
        QTest::newRow(qPrintable(text)) << text;
    for (
        const QString &each :
        {track, R"({"uri":"u:\/\\\"\b\f\n\r\t","name":"\u00e9\u4e2dx\uD83C\uDFB5"})"_s,
         R"({"uri":"u","album":{"name":"\u00e9\"","uri":"al"}})"_s, R"({"uri":"u","name":null})"_s, "{}"_s,
         "{\"uri\":\"ü\",\"name\":\"中🎵\uE000\uFFFD\"}"_s,
         R"({"uri":"podcast+x","album":{"comment":"C","artists":[{"name":"A"}]},"artists":[{"name":"X"}]})"_s,
         R"({"uri":"u","a":0,"b":-1.50,"c":true,"d":false,"e":null,"f":[[],{}],"g":123456789012345678})"_s})
        QTest::newRow(qPrintable(each)) << entries.arg(each);
}

void LongLists::isReadAsQtReadsIt()
{
    QFETCH(QString, text);
    HalvoraPlayer ours;
    HalvoraPlayer qts;
    QSignalSpy changed(&ours, &HalvoraPlayer::queueChanged);
    QVERIFY(ours.updateQueue(whole(text)));
    qts.updateQueue(json(text));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(describe(&ours), describe(&qts));
}

void LongLists::rowsAreReadAsQtReadsThem()
{
    for (const QString &text :
         {"[]"_s, R"([{"type":"track","uri":"t:1","name":"A"},{"uri":"al","type":"album"},
        {"type":"track","uri":"t:2","name":"\u00c9"},{"type":"directory","uri":"d","x":[{"type":"album"}]}])"_s,
          R"([{"type":"unheard"},{"uri":"u"},{"type":null,"name":null,"uri":null},{}])"_s}) {
        const std::optional<LibraryRows> ours[] = {LibraryRows::fromDirectory(whole(text)),
                                                   LibraryRows::fromPlaylist(whole(text))};
        const LibraryRows qts[] = {LibraryRows::fromDirectory(json(text)),
                                   LibraryRows::fromPlaylist(json(text))};
        for (const int kind : {0, 1}) {
            QVERIFY2(ours[kind].has_value(), qPrintable(text));
            QCOMPARE(describe(*ours[kind]), describe(qts[kind]));
            release(*ours[kind]);
            release(qts[kind]);
        }
    }
}

void LongLists::longReplyOnTheSocketMakesTheQueue()
{
    for (const QString &head :
         {R"({"jsonrpc": "2.0", "id": "0")"_s, R"({"id":"0","jsonrpc":"2.0")"_s, R"({"id":"0","extra":[1])"_s,
          R"({"extra":1e2,"id":"0")"_s}) { // the last of them is for Qt alone
        ConnectedStudio studio;
        studio.say(R"({"event":"tracklist_changed"})"_s);
        studio.say(reply(head, R"({"tlid":4,"track":)"_s + track + "}"_s) + " \n"_s);
        QCOMPARE(studio.player.queueTlid(), QList<int>{4});
        QCOMPARE(describe(listed(studio.player.queue()).first()),
                 "local:a|A||al:1|Al|ar:1|ar:3|X|Y|X, Y|0"_s);
    }
}

void LongLists::longRepliesGoUnreadToWhoReadsThem()
{
    ConnectedStudio studio;
    ListReceiver receiver;
    QStringList expected;
    for (const bool reads : {true, false}) {
        receiver.reads = reads;
        const int id = studio.player.actionBrowse("u"_s, &receiver, "browseList");
        studio.say(reply(replyHead(id), "{}"_s));
        expected << "%1 unread for browseList"_s.arg(id);
        if (!reads)
            expected << "%1 read"_s.arg(id);
    }
    const int id = studio.player.actionBrowse("u"_s, &receiver, "browseList");
    studio.say(replyHead(id) + ",\"result\":[]}"_s);
    expected << "%1 read"_s.arg(id);
    QCOMPARE(receiver.calls, expected);
    LongReplyReader &player = studio.player;
    QVERIFY(player.readLongReply("updateQueue", 0, whole(R"([{"tlid":8,"track":{"uri":"u"}}])"_s)));
    QVERIFY(!player.readLongReply("updatePlaylists", 0, whole("[]"_s)));
    QCOMPARE(studio.player.queueTlid(), QList<int>{8});
}

void LongLists::isLeftToQt_data()
{
    QTest::addColumn<QString>("text");
    const QString whole = R"({"uri":"u"})"_s;
    const QString nest = QString(40, QLatin1Char('[')) + QString(40, QLatin1Char(']'));
    for (const QString &text :
         {"{}"_s, "[3]"_s, "[] []"_s, R"([{"tlid":1,"track":[]}])"_s, entries.arg(R"({"uri":"u",})"_s),
          entries.arg(whole).replace("1"_s, "\"1\""_s), entries.arg(whole).replace("1"_s, "-1"_s),
          entries.arg(whole).replace("1"_s, "1.5"_s), entries.arg(whole).replace("1"_s, "1234567890"_s),
          entries.arg(whole).replace("\"tlid\":1"_s, "\"tlid\":1,\"tlid\":2"_s),
          entries.arg(whole + ",\"track\":"_s + whole), entries.arg(R"({"uri":"u","uri":"v"})"_s),
          entries.arg("{\"uri\":\"u\",\"x\":"_s + nest + "}"_s)})
        QTest::newRow(qPrintable(text.left(60))) << text;
    for (const char *value : {R"("\u00g0")", R"("\ud83c")", R"("\udfb5x")", R"("\u0000")", R"("\x")", R"("\)",
                              "\"\x01\"", "01", "-", "1.", "1e5", ".5", "+1", "1234567890123456789", "tru",
                              "nulL", "{\"a\\u0062\":1}", "[1,]", "{1:2}"})
        QTest::newRow(value) << entries.arg("{\"uri\":\"u\",\"x\":"_s + QString::fromLatin1(value) + "}"_s);
    for (const ushort half : {0xd83c, 0xdfb5, 0xffff, 0xfeff}) // of a pair, or no character
        QTest::addRow("%x", half) << entries.arg("{\"uri\":\""_s + QChar(half) + "\"}"_s);
}

void LongLists::isLeftToQt()
{
    QFETCH(QString, text);
    HalvoraPlayer player;
    QSignalSpy changed(&player, &HalvoraPlayer::queueChanged);
    QVERIFY(player.updateQueue(whole(R"([{"tlid":8,"track":{"uri":"before"}}])"_s)));
    QVERIFY(!player.updateQueue(whole(text)));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(player.queueTlid(), QList<int>{8});
}

void LongLists::rowsAreLeftToQt()
{
    for (const QString &text :
         {"{}"_s, "[1]"_s, R"([{"type":"track","uri":"u"},{"type":3}])"_s, R"([{"uri":"u"})"_s}) {
        QVERIFY2(!LibraryRows::fromDirectory(whole(text)), qPrintable(text));
        QVERIFY2(!LibraryRows::fromPlaylist(whole(text)), qPrintable(text));
    }
}

void LongLists::brokenLongReplyChangesNothing_data()
{
    QTest::addColumn<QString>("text");
    const QString entry = R"({"tlid":4,"track":{"uri":"u"}})"_s;
    QTest::newRow("cut off") << reply(replyHead(0), entry).chopped(1);
    QTest::newRow("more behind its end") << reply(replyHead(0), entry) + "x"_s;
    QTest::newRow("a space that is none of JSON's") << reply(replyHead(0), entry) + QChar(QChar::Nbsp);
    QTest::newRow("a slip at the very end") << reply(replyHead(0), entry).replace("\"}]}"_s, "\",}]}"_s);
    QTest::newRow("nobody waits for it") << reply(replyHead(77), entry);
    QTest::newRow("an event") << reply(R"({"id":0)"_s, entry).replace("\"}]}"_s, "\"}],\"event\":\"x\"}"_s);
}

void LongLists::brokenLongReplyChangesNothing()
{
    QFETCH(QString, text);
    ConnectedStudio studio;
    QSignalSpy changed(&studio.player, &HalvoraPlayer::queueChanged);
    studio.say(R"({"event":"tracklist_changed"})"_s);
    studio.say(text);
    QCOMPARE(changed.size(), 0);
    for (int time = 0; time < 2; ++time) // the second one finds nobody
        studio.say(reply(R"({"id":"0")"_s, R"({"tlid":4,"track":{"uri":"u"}})"_s));
    QCOMPARE(changed.size(), 1);
}

HALVORA_SUITE_MAIN(LongLists)
#include "tst_longlists.moc"
