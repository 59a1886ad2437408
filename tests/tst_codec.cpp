// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/Aes128.h"
#include "link/FrameCodec.h"
#include "link/MessageFields.h"
#include "link/StreamSplitter.h"
#include "support/Suite.h"

#include <QRandomGenerator>

#include <openssl/evp.h>

namespace {

const QByteArray linkKey = "7391058264610275";
const QByteArray zeroVector(16, '\0');

// The same cipher by somebody else.
QByteArray opensslEncrypt(const QByteArray &data, const QByteArray &key, const QByteArray &vector,
                          bool padded)
{
    const auto bytes = [](const QByteArray &array) {
        return reinterpret_cast<const unsigned char *>(array.constData());
    };
    QByteArray cipher(data.size() + 16, '\0');
    auto *out = reinterpret_cast<unsigned char *>(cipher.data());
    EVP_CIPHER_CTX *context = EVP_CIPHER_CTX_new();
    int size = 0;
    int rest = 0;
    EVP_EncryptInit_ex(context, EVP_aes_128_cbc(), nullptr, bytes(key), bytes(vector));
    EVP_CIPHER_CTX_set_padding(context, padded ? 1 : 0);
    EVP_EncryptUpdate(context, out, &size, bytes(data), data.size());
    EVP_EncryptFinal_ex(context, out + size, &rest);
    EVP_CIPHER_CTX_free(context);
    return cipher.left(size + rest);
}

QByteArray randomBytes(QRandomGenerator &random, int size)
{
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

QString randomText(QRandomGenerator &random, int size)
{
    static const QString letters = u8"abcXYZ 019|@;äß€日"_s;
    QString text;
    while (text.size() < size)
        text.append(letters.at(random.bounded(letters.size())));
    return text;
}

// A frame whose deciphered bytes are `plain`, padding and all; `plain` is a multiple of 16 bytes.
QByteArray frameOf(const QByteArray &plain)
{
    return Aes128::encryptCbc(plain, linkKey, zeroVector).toBase64();
}

// As on a processor without instructions for the cipher, if `wanted`.
struct TablesOnly
{
    explicit TablesOnly(bool wanted) { Aes128::useTablesForTests(wanted); }
    ~TablesOnly() { Aes128::useTablesForTests(false); }
};

} // namespace

class TestCodec final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    // What works

    void agreesWithOpenssl();
    void frames();
    void framesOfRandomTextsComeBack();
    void fieldsAreAsQtReadsThem();
    void streamCutInTwo();

    // What goes wrong

    void cipherRefusesWrongSizes();
    void forgivingPadding_data();
    void forgivingPadding();
    void spoiltFrames_data();
    void spoiltFrames();
    void oddStreams_data();
    void oddStreams();
};

void TestCodec::agreesWithOpenssl()
{
    QRandomGenerator random(20231);
    for (int size = 0; size <= 304; size += 16) {
        const QByteArray key = randomBytes(random, 16);
        const QByteArray vector = randomBytes(random, 16);
        const QByteArray plain = randomBytes(random, size);
        const QByteArray cipher = opensslEncrypt(plain, key, vector, false);
        for (const bool byTables : {false, true}) {
            const TablesOnly tablesOnly(byTables);
            QCOMPARE(Aes128::encryptCbc(plain, key, vector), cipher);
            QCOMPARE(Aes128::decryptCbc(cipher, key, vector), plain);
        }
    }
}

void TestCodec::frames()
{
    const QPair<QString, QByteArray> table[] = {
        {"0|"_s, "un6sk96eT2O3BIuEeM0zuA=="},
        {"1|UI_COMMAND|17"_s, "FAYSYoPAGLu2LvRIteRAgg=="},
        {"0|UI_COMMAND|172"_s, "8k1fYty8qHnDwYumwMdE4GWtXl5Va8n+/5xFxeisAoY="}, // a block of padding
    };
    for (const auto &row : table) {
        QCOMPARE(FrameCodec::encryptText(row.first), row.second);
        QCOMPARE(FrameCodec::decryptText(row.second), row.first);
    }
    QCOMPARE(FrameCodec::encryptText("0|"_s + QChar(0) + "lost"_s), table[0].second);
}

void TestCodec::framesOfRandomTextsComeBack()
{
    QRandomGenerator random(408);
    for (int size = 0; size <= 300; ++size) {
        const QString text = randomText(random, size);
        const QByteArray frame = opensslEncrypt(text.toUtf8(), linkKey, zeroVector, true).toBase64();
        QCOMPARE(FrameCodec::encryptText(text), frame);
        QCOMPARE(FrameCodec::decryptText(frame), text);
    }
}

void TestCodec::fieldsAreAsQtReadsThem()
{
    const QString numbers =
        "7|0|007|999999999|2147483647|2147483648|-7|+7| 7|7 |7.0|0x7|7a||\u0667|1e3|--7|12 3|\u00b2"_s;
    for (const QString &text : {numbers, "|"_s, "||"_s, "a|"_s, "|a"_s, "7@a@@b"_s, ""_s, QString()})
        QCOMPARE(MessageFields::split(text, '|'), text.split(QLatin1Char('|')));
    for (const QString &field : numbers.split(QLatin1Char('|')) + QStringList(QString()))
        QCOMPARE(MessageFields::number(field), field.toInt());
}

void TestCodec::streamCutInTwo()
{
    const QVector<QByteArray> frames{"QUJDRA==", "RQ==", "RkdISUpLTE1O"};
    const QByteArray stream = frames.at(0) + "%%%" + frames.at(1) + "%%%" + frames.at(2) + "%%%";
    for (int cut = 0; cut <= stream.size(); ++cut) {
        StreamSplitter splitter;
        QVector<QByteArray> parts = splitter.append(stream.left(cut));
        parts += splitter.append(stream.mid(cut));
        // Only a head without any terminator is handed on before its time.
        const bool loneHead = cut > 0 && cut < frames.at(0).size() + 3;
        const QVector<QByteArray> expected = loneHead ? QVector<QByteArray>{stream.left(cut)} + frames
                                                      : frames;
        QVERIFY2(parts == expected, qPrintable("cut at %1"_s.arg(cut)));
        QCOMPARE(splitter.pendingBytes(), 0);
    }
}

void TestCodec::cipherRefusesWrongSizes()
{
    const QByteArray block(16, 'x');
    for (const QByteArray &wrong : {block.left(15), block + 'x', QByteArray()}) {
        QCOMPARE(Aes128::encryptCbc(wrong, block, block), QByteArray());
        QCOMPARE(Aes128::decryptCbc(wrong, block, block), QByteArray());
        QCOMPARE(Aes128::encryptCbc(block, wrong, block), QByteArray());
        QCOMPARE(Aes128::decryptCbc(block, block, wrong), QByteArray());
    }
}

void TestCodec::forgivingPadding_data()
{
    QTest::addColumn<QByteArray>("padded");
    QTest::addColumn<QByteArray>("stripped");
    QTest::newRow("right") << QByteArray("ab\3\3\3") << QByteArray("ab");
    QTest::newRow("a whole block") << QByteArray(16, 16) << QByteArray();
    QTest::newRow("another byte in between") << QByteArray("ab\3\1\3") << QByteArray("ab\3\1");
    QTest::newRow("more equal bytes than it says") << QByteArray("ab\2\2\2\2") << QByteArray("ab\2\2");
    QTest::newRow("last byte 0") << QByteArray("ab\0", 3) << QByteArray("ab\0", 3);
    QTest::newRow("last byte 17, 20 of them") << QByteArray(20, 17) << QByteArray(3, 17);
    QTest::newRow("last byte 127, twice") << QByteArray("ab\x7f\x7f") << QByteArray("ab");
    QTest::newRow("last byte 128 is negative") << QByteArray("ab\x80\x80") << QByteArray("ab\x80\x80");
    QTest::newRow("nothing") << QByteArray() << QByteArray();
}

void TestCodec::forgivingPadding()
{
    QFETCH(const QByteArray, padded);
    QFETCH(const QByteArray, stripped);
    QCOMPARE(FrameCodec::withoutPadding(padded), stripped);
}

void TestCodec::spoiltFrames_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QString>("message");
    const QByteArray good = FrameCodec::encryptText("1|JOIN"_s);
    QTest::newRow("no padding at all") << frameOf("0123456789abcd\r\n") << "0123456789abcd\r"_s;
    QTest::newRow("zero padding") << frameOf(QByteArray("1|JOIN").leftJustified(16, '\0')) << "1|JOIN"_s;
    QTest::newRow("a NUL in the message") << frameOf(QByteArray("1|JOIN\0|lost\3\3\3", 16)) << "1|JOIN"_s;
    QTest::newRow("a NUL in the frame") << good + QByteArray("\0AAAA", 5) << "1|JOIN"_s;
    QTest::newRow("half a block") << good.left(12) << QString();
    QTest::newRow("a block and a byte")
        << QByteArray(QByteArray::fromBase64(good) + 'x').toBase64() << QString();
    QTest::newRow("nothing") << QByteArray() << QString();
}

void TestCodec::spoiltFrames()
{
    QFETCH(const QByteArray, frame);
    QFETCH(const QString, message);
    QCOMPARE(FrameCodec::decryptText(frame), message);
}

void TestCodec::oddStreams_data()
{
    QTest::addColumn<QByteArrayList>("reads");
    QTest::addColumn<QByteArrayList>("parts");
    QTest::addColumn<int>("pending");
    using List = QByteArrayList;
    QTest::newRow("terminators around a frame") << List{"%%%%%%AA%%%"} << List{"AA"} << 0;
    QTest::newRow("a lone head is handed on and kept") << List{"AA"} << List{"AA"} << 2;
    QTest::newRow("the head of the next, then its rest") << List{"AA%%%B", "B%%%"} << List{"AA", "BB"} << 0;
    QTest::newRow("a head behind a terminator counts as alone") << List{"%%%BB"} << List{"BB"} << 5;
    QTest::newRow("what follows a NUL is not looked at")
        << List{QByteArray("AA\0BB%%%", 8)} << List{"AA"} << 8;
    QTest::newRow("a frame, then a NUL") << List{QByteArray("AA%%%\0BB", 8)} << List{"AA"} << 0;
}

void TestCodec::oddStreams()
{
    QFETCH(const QByteArrayList, reads);
    QFETCH(const QByteArrayList, parts);
    QFETCH(const int, pending);
    StreamSplitter splitter;
    QByteArrayList seen;
    for (const QByteArray &read : reads)
        seen += QByteArrayList::fromVector(splitter.append(read));
    QCOMPARE(seen, parts);
    QCOMPARE(splitter.pendingBytes(), pending);
}

HALVORA_SUITE_MAIN(TestCodec)
#include "tst_codec.moc"
