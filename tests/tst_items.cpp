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
#include "support/Rows.h"
#include "support/Suite.h"

#include <QImage>
#include <QPluginLoader>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>

// The suite works on the built library where it can: resources and registrations are those that ship.

namespace {

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
    const QVariantList samples{
        41, true, "text"_s, QStringList{"one"_s, "two"_s}, QVariantHash{{"key"_s, 7}}, QColor(1, 2, 3)};
    for (const QVariant &sample : samples) {
        if (sample.type() == property.type())
            return sample;
    }
    return {};
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

    void jsonThatIsNoObject();
    void themeColours();

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
    Rows::add("types"_s, R"(
        com.kestrum.translations ; DynamicTranslator
        com.kestrum.halvoraint ; Theme MainTabController OutputsView PlayerView NavigationView NavigationBar
        com.kestrum.halvoraint ; NavigationController BrowseNavController SearchNavController SearchRootView
        com.kestrum.halvoraint ; PlaylistNavController BrowseListView
        com.kestrum.logic ; PlayerItem Song PlaylistEntry Playlist
        com.kestrum.logic ; HalvoraPlayer Source Output Halvora Device)"_s);
}

void TestItems::typesAreCreatable()
{
    QFETCH(const QString, types);
    for (const QString &type : types.split(QLatin1Char(' '))) {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        const QByteArray import = "import QtQuick 2.0; import " + QByteArray(QTest::currentDataTag())
            + " 1.0; ";
        component.setData(import + type.toUtf8() + " {}", QUrl());
        const std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        QCOMPARE(QString::fromLatin1(object->metaObject()->className()),
                 type == "BrowseNavController"_s ? "BrowseNavigationController"_s : type);
        QCOMPARE(object->parent(), nullptr);
    }
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

// How many there are, and some of each kind, with their sizes.
void TestItems::pictures()
{
    const QDir folder(":/HalvoraImgs/Images"_s);
    QCOMPARE(folder.entryList().size(), 49);
    for (const QString &line :
         {"100x75 airplay_alpha source_alpha"_s, "180x180 airplay_sel_0 defaultcoverart_1"_s,
          "75x65 halvora output_sel_0 settings_sel_1"_s, "40x40 delete matrix mute_1 shuffle_sel_0 sound"_s,
          "31x31 eqclose"_s, "20x8 menu_dots"_s, "340x255 modelA modelB"_s,
          "25x25 mute_small_0 sound_small"_s, "20x20 offline online"_s, "128x128 playlistcoverart_0"_s}) {
        QStringList stems = line.split(QLatin1Char(' '));
        const QString size = stems.takeFirst();
        for (const QString &stem : qAsConst(stems)) {
            const QImage picture(folder.filePath(stem + ".png"_s));
            QCOMPARE(stem + " %1x%2"_s.arg(picture.width()).arg(picture.height()), stem + " "_s + size);
        }
    }
}

// The properties with the default of each.
void TestItems::defaults_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<QString>("properties");
    const auto row = [](Make make, const QString &properties) {
        const std::unique_ptr<QObject> object(make());
        QTest::newRow(object->metaObject()->className()) << make << properties;
    };
    const QString item = R"(uri:"" name:"" type:"" smallImgPath:"" mediumImgPath:"" largeImgPath:"")"_s;
    const QString artists = R"( artistsUri:[] artists:[] artistsString:"")"_s;
    row([] { return new Device; },
        R"(serialNumber:"" localIp:"" localPort:0 remoteIp:"" remotePort:0 username:"" password:"" )"
        "propDictionary:{}"_s);
    row([] { return new Output; },
        R"(index:-1 name:"" volume:0 mute:false bass:0 middle:0 treble:0 loudness:0 selectedSource:null)"_s);
    row([] { return new Source; }, R"(index:-1 name:"" volume:0 player:null)"_s);
    row([] { return new PlaylistEntry; }, R"(entryId:-1 name:"" playlistRef:"")"_s);
    row([] { return new PlayerItem; }, item);
    row([] { return new Song; }, item + R"( duration:0 currTime:0 albumUri:"" album:"")"_s + artists);
    row([] { return new Album; }, item + artists);
    row([] { return new Playlist; }, R"(uri:"" name:"")"_s);
    row([] { return new HalvoraPlayer; },
        R"(index:-1 sourceRef:-1 ipAddress:"" port:"6680" playPause:0 shuffle:false repeat:false )"
        R"(currentSong:null currentTlid:0 airPlay:false airPlayTrack:"" airPlayAlbum:"" airPlayArtist:"" )"
        R"(airPlayImage:"" queue:null queueTlid:null playlists:null filters:[] filterTitles:[])"_s);
    row([] { return new Theme; },
        R"(background:"#000000" menu:"#000000" header:"#000000" highlight:"#000000" )"
        R"(icons:"#000000" text:"#000000" imgSuffix:"")"_s);
}

void TestItems::defaults()
{
    QFETCH(const Make, make);
    QFETCH(const QString, properties);
    m_plugin->initializeEngine(nullptr, nullptr); // makes list properties known, which are read here
    const std::unique_ptr<QObject> object(make());
    QStringList expected = properties.split(QLatin1Char(' ')) << "objectName:\"\""_s;
    expected.sort();
    const QString json = expected.join(QLatin1Char(','))
                             .replace(QRegularExpression("(\\w+):"_s), "\"\\1\":"_s);
    QCOMPARE(objectToJson(object.get()), "{"_s + json + "}"_s);
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

// Small, medium and large of these widths; "first" and "last" in the hash's own order.
void TestItems::pictureChoice_data()
{
    Rows::add("widths chosen"_s, R"(
        none ; ; - - -
        one without a width ; 0 ; 0 0 0
        one of each ; 64 300 640 ; 64 300 640
        medium that is large, too ; 500 550 ; 500 550 550
        many small ones ; 0 10 20 30 40 50 299 ; 0 last last
        all at the sentinel and above ; 100000 100001 200000 ; first last 200000
        just below the sentinel ; 99999 100000 ; 99999 last 100000
        bounds, inside ; 300 599 ; 300 599 599
        bounds, outside ; 299 600 ; 299 last 600
        large from 500 ; 499 500 ; 499 500 500
        none large below 500 ; 400 499 ; 400 499 last
        a negative width ; -5 400 ; -5 400 last)"_s);
}

void TestItems::pictureChoice()
{
    QFETCH(const QString, widths);
    QFETCH(const QString, chosen);
    PlayerItem item;
    for (const QString &width : widths.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        item.images->insert(width.toInt(), width);
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
    Rows::add("colours suffix"_s, R"(
        theme0 ; #1d252b #2f363c #4a555d #6e99c7 #eeeeee #a5acad ; _0
        theme1 ; #1d252b #2f363c #4a555d #fcbf27 #eeeeee #a5acad ; _1
        theme2 ; #2e292d #4b4849 #555454 #6e99c7 #eeeeee #a5acad ; _0
        theme3 ; #2e292d #4b4849 #555454 #fcbf27 #eeeeee #a5acad ; _1)"_s);
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
    Rows::add("language texts"_s, u8R"(
        ; en ; Tracks|Local files|iTunes Store: Podcasts|Play Track Next|Rename|
        ; de ; Titel|Lokale Dateien|iTunes Store: Podcasts|Nach dem derzeitigen Titel wiedergeben|Rename|
        ; it ; Tracce|File locali|iTunes Store: Podcasts|Riproduci dopo la traccia corrente|Rinomina|)"_s);
}

void TestItems::translations()
{
    QFETCH(const QString, language);
    QTranslator translator;
    if (language != "en"_s) {
        QVERIFY(translator.load(":/Translations/Halvora_%1.qm"_s.arg(language)));
        QCoreApplication::installTranslator(&translator);
    }
    DynamicTranslator::loadTranslations(); // takes the place of what an earlier language has left
    QCoreApplication::removeTranslator(&translator);
    QStringList texts;
    for (const QString &word :
         {"track"_s, "local"_s, "podcast+itunes"_s, "It_PlayAfter"_s, "It_Rename"_s, "Track"_s})
        texts << DynamicTranslator().translate(word);
    QTEST(texts.join(QLatin1Char('|')), "texts");
}

void TestItems::jsonThatIsNoObject()
{
    for (const QString &json : {"[1,2]"_s, "\"localIp\""_s, R"({"localIp":"x")"_s, QString(), "{}"_s}) {
        Device device;
        QCOMPARE(objectFromJson(&device, json), json == "{}"_s);
        QCOMPARE(objectToJson(&device), objectToJson(std::make_unique<Device>().get()));
        QCOMPARE(device.dynamicPropertyNames(), QList<QByteArray>());
    }
}

void TestItems::themeColours()
{
    const QPair<QJsonValue, QColor> table[]{
        {"1;2;3;4"_s, QColor(1, 2, 3)}, {"1;2"_s, Qt::black},           {QJsonValue::Undefined, Qt::black},
        {"a;2;3"_s, QColor(0, 2, 3)},   {"255;;"_s, QColor(255, 0, 0)}, {12, Qt::black},
        {"300;0;0"_s, QColor()}};
    QTest::ignoreMessage(QtWarningMsg, "QColor::fromRgb: RGB parameters out of range"); // of the last
    for (const auto &row : table)
        QCOMPARE(Theme(QJsonObject{{"theme_text"_s, row.first}}).text(), row.second);
}

HALVORA_SUITE_MAIN(TestItems)
#include "tst_items.moc"
