// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostProcess.h"

#include "simulator/DeviceSimulator.h"

#include <QImage>
#include <QLibraryInfo>
#include <QLockFile>
#include <QTcpServer>
#include <QtTest>

#include <csignal>

namespace {

QString operator""_s(const char *text, std::size_t length)
{
    return QString::fromUtf8(text, int(length));
}

QString md5(const QByteArray &text)
{
    return QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex());
}

QString numbered(const QString &host, int port)
{
    return host + QLatin1Char(':') + QString::number(port);
}

/// Waits for the login of a client at the device: its fields, "CONNECT" first.
QStringList loginAt(DeviceSimulator *device)
{
    QSignalSpy joined(device, &DeviceSimulator::clientJoined);
    if (device->joinedConnections() == 0 && !joined.wait(30000))
        return {};
    return device->messages().first().split(QLatin1Char('|'));
}

/// The status of a tour at a device, with the pictures in the host's folder "tour".
int tourOf(DeviceSimulator *device, HostProcess *host)
{
    if (!device->listen())
        return -1;
    host->set("QT_QPA_PLATFORM"_s, "xcb"_s);
    host->set("HALVORA_PASSWORD"_s, "x"_s);
    return host->run({"--device"_s, numbered(device->host(), device->port()), "--user"_s, "a"_s, "--tour"_s,
                      host->home() + "/tour"_s});
}

} // namespace

/// halvora-host from outside: what it says, what it writes, how it ends.
class HostProcessTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What works.
    void describesItself_data();
    void describesItself();
    void takesPicturesOfTheDemo();
    void takesPicturesOfADevice();
    void logsInAtADevice_data();
    void logsInAtADevice();
    void asksForThePasswordWithoutShowingIt();
    void keepsItsUniqueId();
    void reachesADeviceOverIPv6();
    void endsQuietlyAtASignal_data();
    void endsQuietlyAtASignal();

    void speaksTheLanguageOfTheSettings_data();
    void speaksTheLanguageOfTheSettings();

    // What goes wrong.
    void refusesWrongOptions_data();
    void refusesWrongOptions();
    void refusesAWrongLibrary_data();
    void refusesAWrongLibrary();
    void namesAMissingModule_data();
    void namesAMissingModule();
    void goesOnWithBadSettings_data();
    void goesOnWithBadSettings();
    void refusesAFolderItCannotMake();
    void tellsWhichScreenDidNotCome();
    void failsATourThatWarns();
    void tellsOfAnUnknownName();
    void refusesADesktopWithoutOpenGL();
    void refusesAMachineWithoutADisplay();
    void endsAtASecondSignal();
};

void HostProcessTest::describesItself_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QStringList>("expected");
    const QStringList help = {
        "--demo"_s,           "--device <HOST:PORT>"_s,  "--user <NAME>"_s,     "--password-file <FILE>"_s,
        "HALVORA_PASSWORD"_s, "--mopidy <HOST:PORT>"_s,  "--language <CODE>"_s, "--small-screen"_s,
        "--full-screen"_s,    "--size <WIDTHxHEIGHT>"_s, "--tour <DIR>"_s};
    QTest::newRow("--help") << "--help"_s << help;
    QTest::newRow("-h") << "-h"_s << help;
    QTest::newRow("--version") << "--version"_s << QStringList{"halvora-host " HALVORA_VERSION "\n"_s};
}

void HostProcessTest::describesItself()
{
    QFETCH(QString, option);
    QFETCH(QStringList, expected);
    HostProcess host;
    host.set("QT_QPA_PLATFORM"_s, "none such"_s); // needs no display
    QCOMPARE(host.run({option}), 0);
    const QString said = host.out();
    for (const QString &part : qAsConst(expected))
        QVERIFY2(said.contains(part), qPrintable(part));
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

void HostProcessTest::takesPicturesOfADevice()
{
    DeviceSimulator device;
    DeviceState state = device.state();
    for (SourceState &source : state.sources)
        source.hasPlayer = false;
    device.setState(state);
    HostProcess host;
    QCOMPARE(tourOf(&device, &host), 0);
    QCOMPARE(host.err(), QString());
    QCOMPARE(QDir(host.home() + "/tour"_s).entryList(QDir::Files).size(), 4);
}

void HostProcessTest::logsInAtADevice_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QByteArray>("password");
    const QByteArray none;
    QTest::newRow("the variable") << none << "grün & 1"_s << QByteArray("grün & 1");
    QTest::newRow("a file") << QByteArray("from a file\n") << QString() << QByteArray("from a file");
    QTest::newRow("the first line alone") << QByteArray("one\r\ntwo\n") << QString() << QByteArray("one");
    QTest::newRow("the file before the variable")
        << QByteArray("sesame") << "variable"_s << QByteArray("sesame");
}

void HostProcessTest::logsInAtADevice()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, variable);
    QFETCH(QByteArray, password);
    DeviceSimulator device;
    QVERIFY(device.listen());
    HostProcess host;
    QStringList arguments = {"--device"_s, numbered(device.host(), device.port()), "--user"_s, "anna"_s};
    if (!file.isNull())
        arguments += {"--password-file"_s, host.writeFile("secret"_s, file)};
    if (!variable.isNull())
        host.set("HALVORA_PASSWORD"_s, variable);
    host.start(arguments);
    const QStringList login = loginAt(&device);
    QCOMPARE(login.value(0), "CONNECT"_s);
    QCOMPARE(login.value(2), "anna"_s);
    QCOMPARE(login.value(3), md5(QString::fromUtf8(password).toLatin1()));
    QVERIFY(host.commandLine().contains("anna") && !host.commandLine().contains(password));
    host.sendSignal(SIGTERM);
    QCOMPARE(host.wait(), 0);
    QCOMPARE(host.err(), QString());
}

void HostProcessTest::asksForThePasswordWithoutShowingIt()
{
    DeviceSimulator device;
    QVERIFY(device.listen());
    HostProcess host;
    host.startOnTerminal({"--device"_s, numbered(device.host(), device.port()), "--user"_s, "anna"_s});
    QVERIFY(host.waitForText("Password for anna: "));
    host.type("open sesame\n");
    QCOMPARE(loginAt(&device).value(3), md5("open sesame"));
    QVERIFY2(!host.out().contains("sesame"_s), qPrintable(host.out()));
}

void HostProcessTest::keepsItsUniqueId()
{
    DeviceSimulator device;
    QVERIFY(device.listen());
    HostProcess here;
    HostProcess elsewhere;
    QStringList ids;
    for (HostProcess *host : {&here, &here, &elsewhere}) {
        device.clearReceived();
        host->set("HALVORA_PASSWORD"_s, "x"_s);
        host->start({"--device"_s, numbered(device.host(), device.port()), "--user"_s, "anna"_s});
        ids += loginAt(&device).value(1);
        host->sendSignal(SIGTERM);
        QCOMPARE(host->wait(), 0);
        QTRY_COMPARE(device.liveConnections(), 0);
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
    host.start({"--device"_s, numbered("[::1]"_s, device.serverPort()), "--user"_s, "anna"_s});
    QTRY_VERIFY_WITH_TIMEOUT(device.hasPendingConnections(), 30000);
}

void HostProcessTest::endsQuietlyAtASignal_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("interrupt") << SIGINT;
    QTest::newRow("terminate") << SIGTERM;
}

void HostProcessTest::endsQuietlyAtASignal()
{
    QFETCH(int, number);
    DeviceSimulator device;
    QVERIFY(device.listen());
    HostProcess host;
    host.set("HALVORA_PASSWORD"_s, "x"_s);
    host.start({"--device"_s, numbered(device.host(), device.port()), "--user"_s, "anna"_s});
    QVERIFY(!loginAt(&device).isEmpty());
    host.sendSignal(number);
    QCOMPARE(host.wait(), 0);
    QCOMPARE(host.err(), QString());
    QTRY_COMPARE(device.liveConnections(), 0);
}

void HostProcessTest::speaksTheLanguageOfTheSettings_data()
{
    QTest::addColumn<QString>("help");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("de") << "Ein simuliertes Haus zeigen"_s
                        << "Entweder --demo oder --device, nicht beides."_s;
    QTest::newRow("it") << "Mostra una casa simulata"_s
                        << "Usare --demo oppure --device, non entrambi."_s;
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
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("sentence");
    const QStringList atDevice = {"--device"_s, "127.0.0.1:5000"_s};
    const QString form = "--device needs HOST:PORT, for example 192.168.1.20:5000, not \"%1\"."_s;
    QTest::newRow("both") << atDevice + QStringList{"--demo"_s}
                          << "Use either --demo or --device, not both."_s;
    for (const char *wrong : {"box", "box:", ":5000", "box:0", "box:65536", "box:5x", "::1:5000",
                              "[box]:5000", "[::1]", "a b:5000", "box:5000 "}) {
        const QString address = QString::fromLatin1(wrong);
        QTest::newRow(wrong) << QStringList{"--device"_s, address, "--user"_s, "a"_s} << form.arg(address);
    }
    QTest::newRow("no user") << atDevice << "--device needs --user NAME as well."_s;
    QTest::newRow("bar in the user") << atDevice + QStringList{"--user"_s, "a|b"_s}
                                     << "--user cannot hold \"|\"."_s;
    QTest::newRow("no password")
        << atDevice + QStringList{"--user"_s, "a"_s}
        << "--device needs a password: give --password-file FILE, set HALVORA_PASSWORD, "
           "or start it on a terminal."_s;
    QTest::newRow("empty password")
        << atDevice + QStringList{"--user"_s, "a"_s, "--password-file"_s, "/dev/null"_s}
        << "The password is empty."_s;
    QTest::newRow("no such password file")
        << atDevice + QStringList{"--user"_s, "a"_s, "--password-file"_s, "/none/such"_s}
        << "The password file \"/none/such\" cannot be read: No such file or directory."_s;
    QTest::newRow("user in the demo") << QStringList{"--demo"_s, "--user"_s, "a"_s}
                                      << "--user and --password-file can only be used with --device."_s;
    QTest::newRow("mopidy without demo")
        << QStringList{"--mopidy"_s, "127.0.0.1:6680"_s} << "--mopidy can only be used with --demo."_s;
    QTest::newRow("mopidy without port")
        << QStringList{"--demo"_s, "--mopidy"_s, "127.0.0.1"_s}
        << "--mopidy needs HOST:PORT, for example 127.0.0.1:6680, not \"127.0.0.1\"."_s;
    QTest::newRow("language") << QStringList{"--demo"_s, "--language"_s, "fr"_s}
                              << "--language knows en, de and it, not \"fr\"."_s;
    for (const char *wrong :
         {"360", "360x", "x640", "360x640x2", "360*640", "339x640", "360x519", "-360x640"}) {
        const QString size = QString::fromLatin1(wrong);
        QTest::newRow(wrong)
            << QStringList{"--demo"_s, "--size="_s + size}
            << "--size needs WIDTHxHEIGHT from 340x520 on, for example 360x640, not \"%1\"."_s.arg(size);
    }
    QTest::newRow("folder without a name")
        << QStringList{"--demo"_s, "--tour"_s, ""_s} << "--tour needs the name of a folder."_s;
    QTest::newRow("tour of nothing") << QStringList{"--tour"_s, "x"_s}
                                     << "--tour can only be used with --demo or --device."_s;
    QTest::newRow("argument") << QStringList{"--demo"_s, "more"_s} << "The argument \"more\" is not known."_s;
    QTest::newRow("option") << QStringList{"--demo"_s, "--password"_s} << "Unknown option 'password'."_s;
    QTest::newRow("no value") << QStringList{"--device"_s} << "Missing value after '--device'."_s;
}

void HostProcessTest::refusesWrongOptions()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, sentence);
    HostProcess host;
    QCOMPARE(host.run(arguments), 2);
    QCOMPARE(host.err(), "halvora-host: %1\n"_s.arg(sentence));
    QCOMPARE(host.out(), QString());
}

void HostProcessTest::refusesAWrongLibrary_data()
{
    QTest::addColumn<QString>("copyOf"); // what stands in for the library; empty: nothing does
    QTest::addColumn<QString>("sentence");
    const QString platforms = QLibraryInfo::location(QLibraryInfo::PluginsPath)
        + "/platforms/libqoffscreen.so"_s;
    QTest::newRow("none") << QString() << "The client library was not found; tried %1."_s;
    QTest::newRow("no library") << QStringLiteral(HALVORA_HOST) << "The client library %1 cannot be used: "_s;
    QTest::newRow("another plugin") << platforms
                                    << "The client library %1 cannot be used: it is no QML extension."_s;
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

void HostProcessTest::namesAMissingModule_data()
{
    QTest::addColumn<QString>("folder"); // of the module, below a folder of QML modules
    QTest::addColumn<QString>("module");
    QTest::addColumn<QString>("package");
    QTest::newRow("models") << "QtQml/Models.2"_s
                            << "QtQml.Models 2.2"_s
                            << "qml-module-qtqml-models2"_s;
    QTest::newRow("layouts") << "QtQuick/Layouts"_s
                             << "QtQuick.Layouts 1.1"_s
                             << "qml-module-qtquick-layouts"_s;
    QTest::newRow("controls") << "QtQuick/Controls"_s
                              << "QtQuick.Controls 1.2"_s
                              << "qml-module-qtquick-controls"_s;
    QTest::newRow("styles") << "QtQuick/Controls/Styles"_s
                            << "QtQuick.Controls.Styles 1.2"_s
                            << "qml-module-qtquick-controls"_s;
    QTest::newRow("effects") << "QtGraphicalEffects"_s
                             << "QtGraphicalEffects 1.0"_s
                             << "qml-module-qtgraphicaleffects"_s;
}

void HostProcessTest::namesAMissingModule()
{
    QFETCH(QString, folder);
    QFETCH(QString, module);
    QFETCH(QString, package);
    HostProcess host;
    // Found before the real one, and of no use.
    host.writeFile("qml/%1/qmldir"_s.arg(folder), "module broken\nplugin none-such\n");
    host.set("QML2_IMPORT_PATH"_s, host.home() + "/qml"_s);
    QCOMPARE(host.run({"--demo"_s}), 1);
    const QString said = host.err();
    QVERIFY2(said.startsWith("halvora-host: These QML modules are missing or do not load: "_s),
             qPrintable(said));
    QVERIFY2(said.contains("%1 (Debian package %2)"_s.arg(module, package)), qPrintable(said));
    QCOMPARE(said.count(QLatin1Char('\n')), 1);
}

void HostProcessTest::goesOnWithBadSettings_data()
{
    QTest::addColumn<QString>("file"); // in the folder of the settings
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("sentence");
    QTest::addColumn<int>("sentences");
    const QString settings = "Kestrum/halvora-host.conf"_s;
    const QByteArray damaged("\0\1 no settings\n[[[\n=\n", 22);
    QTest::newRow("damaged") << settings << damaged
                             << "The settings are damaged; new ones are begun, the old ones are in \""_s << 1;
    QTest::newRow("damaged for good")
        << settings << damaged << "The settings are damaged and cannot be put aside as \""_s
        << 2; // nor can they be written
    QTest::newRow("not to be written")
        << "Kestrum"_s << QByteArray("no folder") << "The settings cannot be written: "_s << 1;
    QTest::newRow("language") << settings << QByteArray("[General]\nlanguage=fr\nuniqueID=me\n")
                              << "The settings name a language that is not known: \"fr\"."_s << 1;
}

void HostProcessTest::goesOnWithBadSettings()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QString, sentence);
    QFETCH(int, sentences);
    DeviceSimulator device;
    QVERIFY(device.listen());
    HostProcess host;
    host.writeFile(file, content);
    if (qstrcmp(QTest::currentDataTag(), "damaged for good") == 0)
        host.writeFile(file + ".damaged/in the way"_s, "x");
    host.set("HALVORA_PASSWORD"_s, "open sesame"_s);
    host.start({"--device"_s, numbered(device.host(), device.port()), "--user"_s, "anna"_s});
    QVERIFY(!loginAt(&device).isEmpty());
    host.sendSignal(SIGTERM);
    QCOMPARE(host.wait(), 0);
    const QString said = host.err();
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
    QTcpServer silent; // takes connections and never answers, so that the overlay stays
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    HostProcess host;
    host.set("HALVORA_PASSWORD"_s, "x"_s);
    QCOMPARE(host.run({"--device"_s, numbered("127.0.0.1"_s, silent.serverPort()), "--user"_s, "a"_s,
                       "--tour"_s, host.home()}),
             1);
    QCOMPARE(host.err(), "halvora-host: The screen \"01-outputs\" did not come.\n"_s);
}

// The device announces music servers that are not there: the player screen misses their song.
void HostProcessTest::failsATourThatWarns()
{
    DeviceSimulator device;
    HostProcess host;
    QCOMPARE(tourOf(&device, &host), 1);
    const QStringList said = host.err().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QVERIFY2(said.filter("TypeError"_s).size() == said.size() - 1, qPrintable(host.err()));
    QCOMPARE(said.value(said.size() - 1), "halvora-host: The tour gave warnings: %1."_s.arg(said.size() - 1));
    QCOMPARE(QDir(host.home() + "/tour"_s).entryList(QDir::Files).size(), 4);
}

void HostProcessTest::tellsOfAnUnknownName()
{
    HostProcess host;
    host.set("HALVORA_PASSWORD"_s, "x"_s);
    host.start({"--device"_s, "no-such-box.invalid:5000"_s, "--user"_s, "a"_s});
    const QString sentence = "halvora.host: The network knows no \"no-such-box.invalid\".\n"_s;
    QTRY_COMPARE_WITH_TIMEOUT(host.err(), sentence, 30000);
    host.sendSignal(SIGTERM);
    QCOMPARE(host.wait(), 0);
}

void HostProcessTest::refusesADesktopWithoutOpenGL()
{
    HostProcess host;
    host.unset("DISPLAY"_s); // without which this platform has none
    QCOMPARE(host.run({"--demo"_s}), 1);
    const QStringList said = host.err().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(said.value(said.size() - 1),
             "halvora-host: The window cannot be drawn, as there is no working OpenGL."_s);
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
    DeviceSimulator device;
    QVERIFY(device.listen());
    HostProcess host;
    const QString settings = host.writeFile("Kestrum/halvora-host.conf"_s, "[General]\nuniqueID=me\n");
    host.set("HALVORA_PASSWORD"_s, "x"_s);
    host.start({"--device"_s, numbered(device.host(), device.port()), "--user"_s, "anna"_s});
    QVERIFY(!loginAt(&device).isEmpty());
    QLockFile busy(settings + ".lock"_s); // the host waits for it with the place of its window
    QVERIFY(busy.lock());
    QVERIFY(host.catches(SIGINT));
    host.sendSignal(SIGINT);
    QTRY_VERIFY(!host.catches(SIGINT));
    QVERIFY(!host.isEnded());
    host.sendSignal(SIGINT);
    QCOMPARE(host.wait(), -1); // by the signal
    QCOMPARE(host.err(), QString());
}

QTEST_GUILESS_MAIN(HostProcessTest)

#include "tst_hostprocess.moc"
