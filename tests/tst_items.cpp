// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/Device.h"
#include "model/Output.h"
#include "model/PlaylistEntry.h"
#include "model/Source.h"
#include "player/Album.h"
#include "player/HalvoraPlayer.h"
#include "player/Playlist.h"
#include "player/Song.h"
#include "screens/DynamicTranslator.h"
#include "screens/Theme.h"
#include "support/Suite.h"

#include <QImage>
#include <QPluginLoader>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>

// The suite works on the built library where it can: resources and registrations are those that ship.

namespace {

using Widths = QList<int>;
using Make = std::function<QObject *()>;

const char modules[] = "import QtQuick 2.0; import com.kestrum.halvoraint 1.0; import com.kestrum.logic 1.0; "
                       "import com.kestrum.translations 1.0; ";

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A value of the property's type that is not its default.
QVariant sampleOf(const QMetaProperty &property)
{
    switch (int(property.type())) {
    case QVariant::Int:
        return 41;
    case QVariant::Bool:
        return true;
    case QVariant::String:
        return "text"_s;
    case QVariant::StringList:
        return QStringList{"one"_s, "two"_s};
    case QVariant::Hash:
        return QVariantHash{{"key"_s, 7}};
    case QVariant::Color:
        return QColor(1, 2, 3);
    default:
        return {};
    }
}

} // namespace

Q_DECLARE_METATYPE(Make)

class TestItems final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    // What works

    void typesComeWithInitializeEngine();
    void typesAreCreatable_data();
    void typesAreCreatable();
    void libraryShowsQtsTwoEntriesAlone();
    void resourceSets();
    void pictures();
    void defaults_data();
    void defaults();
    void settersStoreAndAlwaysTell_data();
    void settersStoreAndAlwaysTell();
    void pictureChoice_data();
    void pictureChoice();
    void deviceDictionary();
    void objectsAsJson();
    void themeFiles_data();
    void themeFiles();
    void translations_data();
    void translations();

    // What goes wrong

    void unknownWordsHaveNoText();
    void jsonThatIsNoObject_data();
    void jsonThatIsNoObject();
    void themeColours_data();
    void themeColours();
    void themeWithoutItsKeys();

private:
    bool knownToQml(const QString &type);

    QPluginLoader m_library{QStringLiteral(HALVORA_LIB)};
    QQmlExtensionPlugin *m_plugin = nullptr;
};

void TestItems::initTestCase()
{
    QVERIFY(!QFile::exists(":/Themes/theme0.json"_s));
    const QJsonObject about = m_library.metaData();
    QCOMPARE(about.value("className"_s).toString(), "HalvoraLibPlugin"_s);
    QCOMPARE(about.value("IID"_s).toString(), "org.qt-project.Qt.QQmlExtensionInterface"_s);
    QCOMPARE(about.value("MetaData"_s).toObject(), QJsonObject());
    m_plugin = qobject_cast<QQmlExtensionPlugin *>(m_library.instance());
    QVERIFY2(m_plugin, qPrintable(m_library.errorString()));
    QVERIFY(!fileBytes(":/Themes/theme0.json"_s).isEmpty()); // before there is any engine
}

bool TestItems::knownToQml(const QString &type)
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(modules + type.toUtf8() + " {}", QUrl());
    return component.isReady();
}

void TestItems::typesComeWithInitializeEngine()
{
    m_plugin->registerTypes("com.kestrum.logic");
    QVERIFY(!knownToQml("Device"_s));
    m_plugin->initializeEngine(nullptr, "any.other.uri");
    QVERIFY(knownToQml("Device"_s));
}

void TestItems::typesAreCreatable_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("cppClass");
    QTest::addColumn<QString>("module");
    const auto rows = [](const QString &module, const QString &types) {
        for (const QString &type : types.split(QLatin1Char(' '))) {
            const bool renamed = type == "BrowseNavController"_s;
            QTest::newRow(qPrintable(type))
                << type << (renamed ? "BrowseNavigationController"_s : type) << module;
        }
    };
    rows("com.kestrum.translations"_s, "DynamicTranslator"_s);
    rows("com.kestrum.halvoraint"_s,
         "Theme MainTabController OutputsView PlayerView NavigationView NavigationBar NavigationController "
         "BrowseNavController SearchNavController SearchRootView BrowseListView PlaylistNavController"_s);
    rows("com.kestrum.logic"_s,
         "PlayerItem Song PlaylistEntry Playlist HalvoraPlayer Source Output Halvora Device"_s);
}

void TestItems::typesAreCreatable()
{
    QFETCH(const QString, type);
    QFETCH(const QString, cppClass);
    QFETCH(const QString, module);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.0; import " + module.toUtf8() + " 1.0; " + type.toUtf8() + " {}",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QCOMPARE(QString::fromLatin1(object->metaObject()->className()), cppClass);
    QCOMPARE(object->parent(), nullptr);
}

void TestItems::libraryShowsQtsTwoEntriesAlone()
{
    QProcess nm;
    nm.start("nm"_s, {"-D"_s, "--defined-only"_s, "--format=posix"_s, QStringLiteral(HALVORA_LIB)});
    QVERIFY(nm.waitForFinished());
    QStringList symbols;
    for (const QByteArray &line : nm.readAllStandardOutput().trimmed().split('\n'))
        symbols << QString::fromLatin1(line.split(' ').first());
    symbols.sort();
    QCOMPARE(symbols, (QStringList{"qt_plugin_instance"_s, "qt_plugin_query_metadata"_s}));
}

void TestItems::resourceSets()
{
    QCOMPARE(QDir(":/Themes"_s).entryList(),
             (QStringList{"theme0.json"_s, "theme1.json"_s, "theme2.json"_s, "theme3.json"_s}));
    QCOMPARE(QDir(":/Translations"_s).entryList(), (QStringList{"Halvora_de.qm"_s, "Halvora_it.qm"_s}));
    for (const QString &file : {"OutputsView.qml"_s, "PlayerView.qml"_s})
        QVERIFY2(QFile::exists(":/Qml/"_s + file), qPrintable(file));
}

void TestItems::pictures()
{
    const QStringList bySize{"100x75: airplay_alpha source_alpha"_s,
                             "180x180: airplay_sel* defaultcoverart*"_s,
                             "75x65: halvora halvora_sel* output output_sel* settings settings_sel*"_s,
                             "40x40: delete equilizer library library_search matrix mute* next open pause "
                             "play playlists prev queue refresh "
                             "repeat repeat_sel* save shuffle shuffle_sel* sound"_s,
                             "31x31: eqclose"_s,
                             "20x8: menu_dots"_s,
                             "340x255: modelA modelB"_s,
                             "25x25: mute_small* sound_small"_s,
                             "20x20: offline online"_s,
                             "128x128: playlistcoverart*"_s};
    QStringList expected; // a star stands for one file of each accent
    for (const QString &line : bySize) {
        for (const QString &stem : line.section(": "_s, 1).split(QLatin1Char(' '))) {
            const bool accented = stem.endsWith(QLatin1Char('*'));
            for (const QString &suffix : accented ? QStringList{"_0"_s, "_1"_s} : QStringList{QString()})
                expected << (accented ? stem.chopped(1) : stem) + suffix + ".png "_s
                        + line.section(": "_s, 0, 0);
        }
    }
    QStringList found;
    const QDir folder(":/HalvoraImgs/Images"_s);
    for (const QString &name : folder.entryList()) {
        const QImage picture(folder.filePath(name));
        found << "%1 %2x%3"_s.arg(name).arg(picture.width()).arg(picture.height());
    }
    expected.sort();
    found.sort();
    QCOMPARE(found, expected);
    QCOMPARE(found.size(), 49);
}

void TestItems::defaults_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<QString>("order"); // the properties as declared
    QTest::addColumn<QString>("json");
    const auto row = [](const char *name, Make make, const QString &order, const QString &json) {
        QTest::newRow(name) << make << order << json;
    };
    row(
        "Device", [] { return new Device; },
        "serialNumber localIp localPort remoteIp remotePort username password propDictionary"_s,
        R"({"localIp":"","localPort":0,"objectName":"","password":"","propDictionary":{},"remoteIp":"",)"
        R"("remotePort":0,"serialNumber":"","username":""})"_s);
    row(
        "Output", [] { return new Output; },
        "index name volume mute bass middle treble loudness selectedSource"_s,
        R"({"bass":0,"index":-1,"loudness":0,"middle":0,"mute":false,"name":"","objectName":"",)"
        R"("selectedSource":null,"treble":0,"volume":0})"_s);
    row(
        "Source", [] { return new Source; }, "index name volume player"_s,
        R"({"index":-1,"name":"","objectName":"","player":null,"volume":0})"_s);
    row(
        "PlaylistEntry", [] { return new PlaylistEntry; }, "entryId name playlistRef"_s,
        R"({"entryId":-1,"name":"","objectName":"","playlistRef":""})"_s);
    row(
        "PlayerItem", [] { return new PlayerItem; },
        "uri name type smallImgPath mediumImgPath largeImgPath"_s,
        R"({"largeImgPath":"","mediumImgPath":"","name":"","objectName":"","smallImgPath":"","type":"","uri":""})"_s);
    row(
        "Song", [] { return new Song; },
        "uri name type smallImgPath mediumImgPath largeImgPath duration currTime albumUri album artistsUri "
        "artists "
        "artistsString"_s,
        R"({"album":"","albumUri":"","artists":[],"artistsString":"","artistsUri":[],"currTime":0,"duration":0,)"
        R"("largeImgPath":"","mediumImgPath":"","name":"","objectName":"","smallImgPath":"","type":"","uri":""})"_s);
    row(
        "Album", [] { return new Album; },
        "uri name type smallImgPath mediumImgPath largeImgPath artistsUri artists artistsString"_s,
        R"({"artists":[],"artistsString":"","artistsUri":[],"largeImgPath":"","mediumImgPath":"","name":"",)"
        R"("objectName":"","smallImgPath":"","type":"","uri":""})"_s);
    row(
        "Playlist", [] { return new Playlist; }, "uri name"_s, R"({"name":"","objectName":"","uri":""})"_s);
    row(
        "HalvoraPlayer", [] { return new HalvoraPlayer; },
        "index sourceRef ipAddress port playPause shuffle repeat currentSong currentTlid airPlay "
        "airPlayTrack "
        "airPlayAlbum airPlayArtist airPlayImage queue queueTlid playlists filters filterTitles"_s,
        R"({"airPlay":false,"airPlayAlbum":"","airPlayArtist":"","airPlayImage":"","airPlayTrack":"",)"
        R"("currentSong":null,"currentTlid":0,"filterTitles":[],"filters":[],"index":-1,"ipAddress":"",)"
        R"("objectName":"","playPause":0,"playlists":null,"port":"6680","queue":null,"queueTlid":null,)"
        R"("repeat":false,"shuffle":false,"sourceRef":-1})"_s);
    row(
        "Theme", [] { return new Theme; }, "background menu header highlight icons text imgSuffix"_s,
        R"({"background":"#000000","header":"#000000","highlight":"#000000","icons":"#000000","imgSuffix":"",)"
        R"("menu":"#000000","objectName":"","text":"#000000"})"_s);
}

void TestItems::defaults()
{
    QFETCH(const Make, make);
    QFETCH(const QString, order);
    QFETCH(const QString, json);
    m_plugin->initializeEngine(nullptr, nullptr); // makes list properties known, which are read here
    const std::unique_ptr<QObject> object(make());
    QCOMPARE(objectToJson(object.get()), json);
    QStringList names;
    for (int i = QObject::staticMetaObject.propertyCount(); i < object->metaObject()->propertyCount(); ++i)
        names << QString::fromLatin1(object->metaObject()->property(i).name());
    QCOMPARE(names.join(QLatin1Char(' ')), order);
}

void TestItems::settersStoreAndAlwaysTell_data()
{
    defaults_data();
}

void TestItems::settersStoreAndAlwaysTell()
{
    QFETCH(const Make, make);
    const std::unique_ptr<QObject> object(make());
    Source source;
    Song song;
    HalvoraPlayer player;
    const QHash<QByteArray, QVariant> pointers{{"selectedSource", QVariant::fromValue(&source)},
                                               {"currentSong", QVariant::fromValue(&song)},
                                               {"player", QVariant::fromValue(&player)}};
    for (int i = QObject::staticMetaObject.propertyCount(); i < object->metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = object->metaObject()->property(i);
        QCOMPARE(property.notifySignal().name(), QByteArray(property.name()) + "Changed");
        if (!property.isWritable())
            continue;
        const QVariant value = pointers.value(property.name(), sampleOf(property));
        const QSignalSpy changes(object.get(), '2' + property.notifySignal().methodSignature());
        for (int write = 1; write <= 2; ++write) {
            QVERIFY2(property.write(object.get(), value), property.name());
            QCOMPARE(changes.size(), write);
        }
        QCOMPARE(property.read(object.get()), value);
    }
}

void TestItems::pictureChoice_data()
{
    QTest::addColumn<Widths>("widths");
    QTest::addColumn<QString>(
        "chosen"); // small, medium and large; "first" and "last" in the hash's own order
    QTest::newRow("none") << Widths{} << "- - -"_s;
    QTest::newRow("one without a width") << Widths{0} << "0 0 0"_s;
    QTest::newRow("one of each") << Widths{64, 300, 640} << "64 300 640"_s;
    QTest::newRow("medium that is large, too") << Widths{500, 550} << "500 550 550"_s;
    QTest::newRow("neither medium nor large") << Widths{64, 200} << "64 last last"_s;
    QTest::newRow("many small ones") << Widths{0, 10, 20, 30, 40, 50, 299} << "0 last last"_s;
    QTest::newRow("the sentinel alone") << Widths{100000} << "100000 100000 100000"_s;
    QTest::newRow("all at the sentinel and above") << Widths{100000, 100001, 200000} << "first last 200000"_s;
    QTest::newRow("just below the sentinel") << Widths{99999, 100000} << "99999 last 100000"_s;
    QTest::newRow("bounds, inside") << Widths{300, 599} << "300 599 599"_s;
    QTest::newRow("bounds, outside") << Widths{299, 600} << "299 last 600"_s;
    QTest::newRow("large from 500") << Widths{499, 500} << "499 500 500"_s;
    QTest::newRow("none large below 500") << Widths{400, 499} << "400 499 last"_s;
    QTest::newRow("a negative width") << Widths{-5, 400} << "-5 400 last"_s;
}

void TestItems::pictureChoice()
{
    QFETCH(const Widths, widths);
    QFETCH(const QString, chosen);
    PlayerItem item;
    for (const int width : widths)
        item.images->insert(width, QString::number(width));
    QStringList expected = chosen.split(QLatin1Char(' '));
    expected.replaceInStrings(QRegularExpression("^-$"_s), QString());
    if (!widths.isEmpty()) {
        expected.replaceInStrings("first"_s, item.images->values().first());
        expected.replaceInStrings("last"_s, item.images->values().last());
    }
    QCOMPARE((QStringList{item.smallImgPath(), item.mediumImgPath(), item.largeImgPath()}), expected);
}

void TestItems::deviceDictionary()
{
    Device device;
    const QSignalSpy changes(&device, &Device::propDictionaryChanged);
    QCOMPARE(device.getPropDictionaryValue("key"_s), QVariant(QString::fromLatin1("")));
    device.setPropDictionaryValue("key"_s, 1);
    device.setPropDictionaryValue("key"_s, 2);
    device.setPropDictionaryValue("nothing"_s, QVariant());
    QCOMPARE(device.getPropDictionaryValue("key"_s), QVariant(2));
    QVERIFY(!device.getPropDictionaryValue("nothing"_s).isValid());
    QCOMPARE(changes.size(), 0);
    device.setPropDictionary({{"other"_s, 3}});
    QCOMPARE(device.getPropDictionaryValue("key"_s), QVariant(QString::fromLatin1("")));
    QCOMPARE(Device::staticMetaObject.indexOfMethod("setPropDictionaryValue(QString,QVariant)"), -1);
}

void TestItems::objectsAsJson()
{
    Device device;
    device.setUsername(u8"Jörg \"J\""_s);
    device.setLocalPort(80);
    device.setPropDictionaryValue("a"_s, true);
    Device copy;
    QVERIFY(objectFromJson(&copy, objectToJson(&device)));
    QCOMPARE(objectToJson(&copy), objectToJson(&device));
    QCOMPARE(copy.username(), device.username());
    QVERIFY(objectFromJson(&copy, R"({"localIp":"10.0.0.1","colour":"red","localPort":"81"})"_s));
    QCOMPARE(copy.localIp(), "10.0.0.1"_s);
    QCOMPARE(copy.localPort(), 81);
    QCOMPARE(copy.property("colour"), QVariant("red"_s));
    QCOMPARE(copy.username(), device.username());
}

void TestItems::themeFiles_data()
{
    QTest::addColumn<QString>("colours");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("theme0") << "#1d252b #2f363c #4a555d #6e99c7 #eeeeee #a5acad"_s
                            << "_0"_s;
    QTest::newRow("theme1") << "#1d252b #2f363c #4a555d #fcbf27 #eeeeee #a5acad"_s
                            << "_1"_s;
    QTest::newRow("theme2") << "#2e292d #4b4849 #555454 #6e99c7 #eeeeee #a5acad"_s
                            << "_0"_s;
    QTest::newRow("theme3") << "#2e292d #4b4849 #555454 #fcbf27 #eeeeee #a5acad"_s
                            << "_1"_s;
}

void TestItems::themeFiles()
{
    QFETCH(const QString, colours);
    QFETCH(const QString, suffix);
    const QByteArray json = fileBytes(":/Themes/%1.json"_s.arg(QLatin1String(QTest::currentDataTag())));
    const Theme theme(QJsonDocument::fromJson(json).object());
    QStringList names;
    for (const QColor &colour :
         {theme.background(), theme.menu(), theme.header(), theme.highlight(), theme.icons(), theme.text()})
        names << colour.name();
    QCOMPARE(names.join(QLatin1Char(' ')), colours);
    QCOMPARE(theme.imgSuffix(), suffix);
}

void TestItems::translations_data()
{
    QTest::addColumn<QString>("texts"); // in the order of the words below
    QTest::newRow("")
        << "Tracks|All services|Local files|iTunes Store: Podcasts|Internet Archive|Play All Now|"
           "Play Track Next|Add to Queue|Rename|Associate"_s;
    QTest::newRow("de") << u8"Titel|Alle Dienste|Lokale Dateien|iTunes Store: Podcasts|Internet Archiv|"
                           "Jetzt alle wiedergeben|Nach dem derzeitigen Titel wiedergeben|"
                           u8"Zur Wiedergabeliste hinzufügen|Rename|Associate"_s;
    QTest::newRow("it")
        << "Tracce|Tutti i servizi|File locali|iTunes Store: Podcasts|Archivio Internet|"
           "Riroduci tutto ora|Riproduci dopo la traccia corrente|Aggiungi alla coda|Rinomina|Associa"_s;
}

void TestItems::translations()
{
    QFETCH(const QString, texts);
    const QString words =
        "track|all|local|podcast+itunes|internetarchive|It_PlayNow_All|It_PlayAfter|It_AddToQueue|"
        "It_Rename|It_Associate"_s;
    QTranslator translator;
    const QString language = QString::fromLatin1(QTest::currentDataTag());
    if (!language.isEmpty()) {
        QVERIFY(translator.load(":/Translations/Halvora_%1.qm"_s.arg(language)));
        QCoreApplication::installTranslator(&translator);
    }
    DynamicTranslator::loadTranslations(); // takes the place of what an earlier language has left
    QCoreApplication::removeTranslator(&translator);
    const DynamicTranslator one;
    const DynamicTranslator other;
    QStringList seen;
    for (const QString &word : words.split(QLatin1Char('|'))) {
        seen << one.translate(word);
        QCOMPARE(other.translate(word), seen.last());
    }
    QCOMPARE(seen.join(QLatin1Char('|')), texts);
}

void TestItems::unknownWordsHaveNoText()
{
    DynamicTranslator::loadTranslations();
    for (const QString &word : {"Track"_s, "unknown"_s, " track"_s, QString()})
        QCOMPARE(DynamicTranslator::translation(word), QString());
}

void TestItems::jsonThatIsNoObject_data()
{
    QTest::addColumn<QString>("json");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("array") << "[1,2]"_s << false;
    QTest::newRow("text") << "\"localIp\""_s << false;
    QTest::newRow("cut off") << R"({"localIp":"x")"_s << false;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("empty object") << "{}"_s << true;
}

void TestItems::jsonThatIsNoObject()
{
    QFETCH(const QString, json);
    QFETCH(const bool, accepted);
    Device device;
    QCOMPARE(objectFromJson(&device, json), accepted);
    QCOMPARE(objectToJson(&device), objectToJson(std::make_unique<Device>().get()));
    QCOMPARE(device.dynamicPropertyNames(), QList<QByteArray>());
}

void TestItems::themeColours_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("a fourth part is ignored") << QJsonValue("1;2;3;4"_s) << QColor(1, 2, 3);
    QTest::newRow("two parts") << QJsonValue("1;2"_s) << QColor(0, 0, 0);
    QTest::newRow("nothing") << QJsonValue(QString()) << QColor(0, 0, 0);
    QTest::newRow("a letter is 0") << QJsonValue("a;2;3"_s) << QColor(0, 2, 3);
    QTest::newRow("empty parts are 0") << QJsonValue("255;;"_s) << QColor(255, 0, 0);
    QTest::newRow("no text") << QJsonValue(12) << QColor(0, 0, 0);
    QTest::newRow("out of range") << QJsonValue("300;0;0"_s) << QColor();
}

void TestItems::themeColours()
{
    QFETCH(const QJsonValue, value);
    QFETCH(const QColor, colour);
    if (!colour.isValid())
        QTest::ignoreMessage(QtWarningMsg, "QColor::fromRgb: RGB parameters out of range");
    const Theme theme(QJsonObject{{"theme_text"_s, value}});
    QCOMPARE(theme.text(), colour);
}

void TestItems::themeWithoutItsKeys()
{
    const Theme theme{QJsonObject()};
    QCOMPARE(objectToJson(const_cast<Theme *>(&theme)), objectToJson(std::make_unique<Theme>().get()));
}

HALVORA_SUITE_MAIN(TestItems)
#include "tst_items.moc"
