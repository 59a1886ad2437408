// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostProcess.h"

#include "simulator/DeviceSimulator.h"
#include "support/Rows.h"
#include "support/Text.h"

#include <QImage>
#include <QLibraryInfo>
#include <QLockFile>
#include <QTcpServer>
#include <QtTest>

#include <csignal>

namespace {

/// A host at a device of its own. Where the device does not listen, the host comes to no login.
struct House
{
    House()
    {
        device.listen();
        host.set("HALVORA_PASSWORD"_s, "x"_s);
    }
    QStringList access() const
    {
        return {"--device"_s, "%1:%2"_s.arg(device.host()).arg(device.port()), "--user"_s, "anna"_s};
    }
    /// Waits for the host at the device: the fields of its login, "CONNECT" first.
    QStringList login()
    {
        QSignalSpy joined(&device, &DeviceSimulator::clientJoined);
        if (device.joinedConnections() == 0 && !joined.wait(30000))
            return {};
        return device.messages().first().split(QLatin1Char('|'));
    }
    QStringList logIn(const QStringList &options = {})
    {
        host.start(access() + options);
        return login();
    }
    int end(int signal = SIGTERM)
    {
        host.sendSignal(signal);
        return host.wait();
    }

    DeviceSimulator device;
    HostProcess host;
};

QString md5(const QByteArray &text)
{
    return QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex());
}

} // namespace

/// halvora-host from outside: what it says, what it writes, how it ends.
class HostProcessTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What works.
    void describesItself();
    void takesPicturesOfTheDemo();
    void takesPicturesOfADevice_data();
    void takesPicturesOfADevice();
    void logsInAtADevice_data();
    void logsInAtADevice();
    void asksForThePasswordWithoutShowingIt();
    void keepsItsUniqueId();
    void reachesADeviceOverIPv6();
    void speaksTheLanguageOfTheSettings_data();
    void speaksTheLanguageOfTheSettings();

    // What goes wrong.
    void refusesWrongOptions_data();
    void refusesWrongOptions();
    void refusesAWrongLibrary_data();
    void refusesAWrongLibrary();
    void namesTheMissingModules();
    void goesOnWithBadSettings_data();
    void goesOnWithBadSettings();
    void refusesAFolderItCannotMake();
    void tellsWhichScreenDidNotCome();
    void refusesADesktopWithoutOpenGL();
    void refusesAMachineWithoutADisplay();
    void endsAtASecondSignal();
};

void HostProcessTest::describesItself()
{
    HostProcess host;
    host.set("QT_QPA_PLATFORM"_s, "none such"_s); // needs no display
    QCOMPARE(host.run({"--version"_s}), 0);
    QCOMPARE(host.out(), "halvora-host " HALVORA_VERSION "\n"_s);
    QCOMPARE(host.run({"-h"_s}), 0);
    for (const QString &part : {"-h, --help"_s, "HALVORA_PASSWORD"_s, "--tour <DIR>"_s})
        QVERIFY2(host.out().contains(part), qPrintable(part));
    QCOMPARE(host.err(), QString());
}

void HostProcessTest::takesPicturesOfTheDemo()
{
    QVERIFY2(qEnvironmentVariableIsSet("DISPLAY"), "needs a display; ./test brings one");
    HostProcess host;
    host.set("QT_QPA_PLATFORM"_s, "xcb"_s);
    const QDir folder(host.home() + "/a/b"_s);
    const int status = host.run({"--demo"_s, "--size"_s, "360x640"_s, "--tour"_s, folder.path()});
    QCOMPARE(host.err(), QString());
    QCOMPARE(status, 0);
    QStringList stops;
    QVector<QImage> pictures;
    const QStringList files = folder.entryList(QDir::Files, QDir::Name);
    for (const QString &file : files) {
        const QImage picture(folder.filePath(file));
        QCOMPARE(picture.size(), QSize(360, 640));
        QVERIFY2(!pictures.contains(picture), qPrintable(file));
        pictures.append(picture);
        stops.append(file.chopped(4));
    }
    QCOMPARE(stops.join(QLatin1Char(' ')),
             "01-outputs 02-by-source 03-matrix 04-player 05-player-matrix 06-queue 07-queue-swiped "
             "08-save-queue 09-equaliser 10-playlists 11-playlist-tracks 12-playlist-menu 13-rename-playlist "
             "14-delete-playlist 15-preset-slots 16-new-playlist 17-library 18-albums 19-album 20-item-menu "
             "21-playlist-chooser 22-search 23-search-filters 24-search-more 25-airplay "
             "26-source-without-player 27-connection"_s);
}

void HostProcessTest::takesPicturesOfADevice_data()
{
    QTest::addColumn<bool>("warns"); // its music servers are not there: the player screen misses their song
    QTest::newRow("in order") << false;
    QTest::newRow("with warnings") << true;
}

void HostProcessTest::takesPicturesOfADevice()
{
    QFETCH(bool, warns);
    House house;
    DeviceState state = house.device.state();
    for (SourceState &source : state.sources)
        source.hasPlayer = warns;
    house.device.setState(state);
    house.host.set("QT_QPA_PLATFORM"_s, "xcb"_s);
    const QString folder = house.host.home() + "/tour"_s;
    QCOMPARE(house.host.run(house.access() + QStringList{"--tour"_s, folder}), int(warns));
    QStringList said = house.host.err().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QString last = said.isEmpty() ? QString() : said.takeLast();
    QCOMPARE(last, warns ? "halvora-host: The tour gave warnings: %1."_s.arg(said.size()) : QString());
    QCOMPARE(said.filter("TypeError"_s), said);
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 4);
}

void HostProcessTest::logsInAtADevice_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("password");
    QTest::newRow("the variable") << QByteArray() << QByteArray("grün & 1");
    QTest::newRow("the file's first line, before the variable")
        << QByteArray("sesame\r\ntwo\n") << QByteArray("sesame");
}

void HostProcessTest::logsInAtADevice()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, password);
    House house;
    house.host.set("HALVORA_PASSWORD"_s, "grün & 1"_s);
    const QStringList login = house.logIn(
        file.isNull() ? QStringList()
                      : QStringList{"--password-file"_s, house.host.writeFile("secret"_s, file)});
    QCOMPARE(login.mid(0, 1) + login.mid(2, 2),
             (QStringList{"CONNECT"_s, "anna"_s, md5(QString::fromUtf8(password).toLatin1())}));
    QVERIFY(house.host.commandLine().contains("anna") && !house.host.commandLine().contains(password));
    QCOMPARE(house.end(file.isNull() ? SIGTERM : SIGINT), 0);
    QCOMPARE(house.host.err(), QString());
    QTRY_COMPARE(house.device.liveConnections(), 0);
}

void HostProcessTest::asksForThePasswordWithoutShowingIt()
{
    House house;
    house.host.unset("HALVORA_PASSWORD"_s);
    house.host.startOnTerminal(house.access());
    QVERIFY(house.host.waitForText("Password for anna: "));
    house.host.type("open sesame\n");
    QCOMPARE(house.login().value(3), md5("open sesame"));
    QVERIFY2(!house.host.out().contains("sesame"_s), qPrintable(house.host.out()));
}

void HostProcessTest::keepsItsUniqueId()
{
    House here;
    House elsewhere;
    QStringList ids;
    for (House *house : {&here, &here, &elsewhere}) {
        house->device.clearReceived();
        ids += house->logIn().value(1);
        QCOMPARE(house->end(), 0);
        QTRY_COMPARE(house->device.liveConnections(), 0);
    }
    QVERIFY2(!QUuid(ids.at(0)).isNull(), qPrintable(ids.at(0)));
    QCOMPARE(ids.at(1), ids.at(0));
    QVERIFY(ids.at(2) != ids.at(0));
}

void HostProcessTest::reachesADeviceOverIPv6()
{
    QTcpServer device;
    if (!device.listen(QHostAddress::LocalHostIPv6))
        QSKIP("this machine has no IPv6");
    HostProcess host;
    host.set("HALVORA_PASSWORD"_s, "x"_s);
    host.start({"--device"_s, "[::1]:%1"_s.arg(device.serverPort()), "--user"_s, "anna"_s});
    QTRY_VERIFY_WITH_TIMEOUT(device.hasPendingConnections(), 30000);
}

void HostProcessTest::speaksTheLanguageOfTheSettings_data()
{
    Rows::add("help sentence"_s, R"(
        de ; Ein simuliertes Haus zeigen ; Entweder --demo oder --device, nicht beides.
        it ; Mostra una casa simulata ; Usare --demo oppure --device, non entrambi.)"_s);
}

void HostProcessTest::speaksTheLanguageOfTheSettings()
{
    QFETCH(QString, help);
    QFETCH(QString, sentence);
    HostProcess host;
    host.writeFile("Kestrum/halvora-host.conf"_s,
                   QByteArray("[General]\nlanguage=") + QTest::currentDataTag() + '\n');
    QCOMPARE(host.run({"--help"_s}), 0);
    QVERIFY2(host.out().contains(help), qPrintable(host.out()));
    QCOMPARE(host.run({"--demo"_s, "--device"_s, "box:5000"_s}), 2);
    QCOMPARE(host.err(), "halvora-host: %1\n"_s.arg(sentence));
}

void HostProcessTest::refusesWrongOptions_data()
{
    QString rows = R"(
        both ; --device box:1 --demo ; Use either --demo or --device, not both.
        no user ; --device box:1 ; --device needs --user NAME as well.
        bar in the user ; --device box:1 --user a|b ; --user cannot hold "|".
        empty password ; --device box:1 --user a --password-file /dev/null ; The password is empty.
        user in the demo ; --demo --user a ; --user and --password-file can only be used with --device.
        mopidy without demo ; --mopidy 127.0.0.1:6680 ; --mopidy can only be used with --demo.
        language ; --demo --language fr ; --language knows en, de and it, not "fr".
        folder without a name ; --demo --tour= ; --tour needs the name of a folder.
        tour of nothing ; --tour x ; --tour can only be used with --demo or --device.
        argument ; --demo more ; The argument "more" is not known.
        option ; --demo --password ; Unknown option 'password'.
        no value ; --device ; Missing value after '--device'.)"_s;
    const auto add = [&rows](const QString &arguments, const QString &sentence, const QStringList &values) {
        for (const QString &value : values)
            rows += "\n%1 ; %2 ; %3"_s.arg(value, arguments.arg(value), sentence.arg(value));
    };
    const QString address = "--%1 needs HOST:PORT, for example %2, not \"%3\"."_s;
    add("--device %1 --user a"_s, address.arg("device"_s, "192.168.1.20:5000"_s, "%1"_s),
        {"box"_s, "box:0"_s, "box:65536"_s, "box:5x"_s, "::1:5000"_s, "[box]:5000"_s});
    add("--demo --mopidy %1"_s, address.arg("mopidy"_s, "127.0.0.1:6680"_s, "%1"_s), {"server"_s});
    add("--demo --size %1"_s, "--size needs WIDTHxHEIGHT from 340x520 on, for example 360x640, not \"%1\"."_s,
        {"360"_s, "339x640"_s, "360x519"_s, "360x640x2"_s});
    add("--device box:1 --user a --password-file %1"_s,
        "The password file \"%1\" cannot be read: No such file or directory."_s, {"/none/such"_s});
    Rows::add("arguments sentence"_s, rows);
    QTest::newRow("no password") << "--device box:1 --user a"_s
                                 << "--device needs a password: give --password-file FILE, set "
                                    "HALVORA_PASSWORD, or start it on a terminal."_s;
}

void HostProcessTest::refusesWrongOptions()
{
    QFETCH(QString, arguments);
    QFETCH(QString, sentence);
    HostProcess host;
    QCOMPARE(host.run(arguments.split(QLatin1Char(' '))), 2);
    QCOMPARE(host.err(), "halvora-host: %1\n"_s.arg(sentence));
    QCOMPARE(host.out(), QString());
}

void HostProcessTest::refusesAWrongLibrary_data()
{
    QTest::addColumn<QString>("copyOf"); // what stands in for the library; empty: nothing does
    QTest::addColumn<QString>("sentence");
    const QString another = QLibraryInfo::location(QLibraryInfo::PluginsPath)
        + "/platforms/libqoffscreen.so"_s;
    const QString unusable = "The client library %1 cannot be used: "_s;
    QTest::newRow("none") << QString() << "The client library was not found; tried %1."_s;
    QTest::newRow("no library") << QStringLiteral(HALVORA_HOST) << unusable;
    QTest::newRow("another plugin") << another << unusable + "it is no QML extension."_s;
}

void HostProcessTest::refusesAWrongLibrary()
{
    QFETCH(QString, copyOf);
    QFETCH(QString, sentence);
    HostProcess host;
    host.set("HALVORA_PLUGIN_DIR"_s, host.home());
    const QString path = host.home() + "/libHalvoraLib.so"_s;
    if (!copyOf.isEmpty())
        QVERIFY(QFile::copy(copyOf, path));
    QCOMPARE(host.run({"--demo"_s}), 1);
    const QString said = host.err();
    QVERIFY2(said.startsWith("halvora-host: "_s + sentence.arg(path)), qPrintable(said));
    QCOMPARE(said.count(QLatin1Char('\n')), 1);
}

void HostProcessTest::namesTheMissingModules()
{
    HostProcess host;
    // Found before the real ones, and of no use.
    for (const QString &folder : {"QtQml/Models.2"_s, "QtQuick/Layouts"_s, "QtQuick/Controls"_s,
                                  "QtQuick/Controls/Styles"_s, "QtGraphicalEffects"_s})
        host.writeFile("qml/%1/qmldir"_s.arg(folder), "module broken\nplugin none-such\n");
    host.set("QML2_IMPORT_PATH"_s, host.home() + "/qml"_s);
    QCOMPARE(host.run({"--demo"_s}), 1);
    QCOMPARE(host.err(),
             "halvora-host: These QML modules are missing or do not load: "
             "QtQml.Models 2.2 (Debian package qml-module-qtqml-models2), "
             "QtQuick.Layouts 1.1 (Debian package qml-module-qtquick-layouts), "
             "QtQuick.Controls 1.2 (Debian package qml-module-qtquick-controls), "
             "QtQuick.Controls.Styles 1.2 (Debian package qml-module-qtquick-controls), "
             "QtGraphicalEffects 1.0 (Debian package qml-module-qtgraphicaleffects).\n"_s);
}

void HostProcessTest::goesOnWithBadSettings_data()
{
    QTest::addColumn<QVariantMap>("files"); // what stands in the folder of the settings
    QTest::addColumn<QString>("sentence");
    QTest::addColumn<int>("sentences");
    const QString settings = "Kestrum/halvora-host.conf"_s;
    const QByteArray damaged("\0\1 no settings\n[[[\n=\n", 22);
    QTest::newRow("damaged") << QVariantMap{{settings, damaged}}
                             << "The settings are damaged; new ones are begun, the old ones are in \""_s << 1;
    QTest::newRow("damaged for good")
        << QVariantMap{{settings, damaged}, {settings + ".damaged/in the way"_s, "x"_s}}
        << "The settings are damaged and cannot be put aside as \""_s << 2; // nor can they be written
    QTest::newRow("not to be written")
        << QVariantMap{{"Kestrum"_s, "no folder"_s}} << "The settings cannot be written: "_s << 1;
}

void HostProcessTest::goesOnWithBadSettings()
{
    QFETCH(QVariantMap, files);
    QFETCH(QString, sentence);
    QFETCH(int, sentences);
    House house;
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        house.host.writeFile(file.key(), file.value().toByteArray());
    QVERIFY(!house.logIn().isEmpty());
    QCOMPARE(house.end(), 0);
    const QString said = house.host.err();
    QVERIFY2(said.contains(sentence) && said.count(QLatin1Char('\n')) == sentences, qPrintable(said));
}

void HostProcessTest::refusesAFolderItCannotMake()
{
    HostProcess host;
    const QString folder = host.writeFile("file"_s, "x") + "/below"_s;
    QCOMPARE(host.run({"--demo"_s, "--tour"_s, folder}), 1);
    QCOMPARE(host.err(), "halvora-host: The folder \"%1\" cannot be made.\n"_s.arg(folder));
}

void HostProcessTest::tellsWhichScreenDidNotCome()
{
    House house;
    house.device.faults().ignoreLogin = true; // so that the overlay stays
    QCOMPARE(house.host.run(house.access() + QStringList{"--tour"_s, house.host.home()}), 1);
    QCOMPARE(house.host.err(), "halvora-host: The screen \"01-outputs\" did not come.\n"_s);
}

void HostProcessTest::refusesADesktopWithoutOpenGL()
{
    HostProcess host;
    host.unset("DISPLAY"_s); // without which this platform has none
    QCOMPARE(host.run({"--demo"_s}), 1);
    QVERIFY2(
        host.err().endsWith("halvora-host: The window cannot be drawn, as there is no working OpenGL.\n"_s),
        qPrintable(host.err()));
}

void HostProcessTest::refusesAMachineWithoutADisplay()
{
    HostProcess host;
    for (const char *sign : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        host.unset(QLatin1String(sign));
    QCOMPARE(host.run({"--demo"_s}), 1);
    QCOMPARE(host.err(), "halvora-host: There is no display to open a window on.\n"_s);
}

void HostProcessTest::endsAtASecondSignal()
{
    House house;
    const QString settings = house.host.writeFile("Kestrum/halvora-host.conf"_s, "[General]\nuniqueID=me\n");
    QVERIFY(!house.logIn().isEmpty());
    QLockFile busy(settings + ".lock"_s); // the host waits for it with the place of its window
    QVERIFY(busy.lock());
    QVERIFY(house.host.catches(SIGINT));
    house.host.sendSignal(SIGINT);
    QTRY_VERIFY(!house.host.catches(SIGINT));
    QVERIFY(!house.host.isEnded());
    QCOMPARE(house.end(SIGINT), -1); // by the signal
    QCOMPARE(house.host.err(), QString());
}

QTEST_GUILESS_MAIN(HostProcessTest)

#include "tst_hostprocess.moc"
