// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostController.h"
#include "HostPreferences.h"
#include "HostScene.h"
#include "HostSettings.h"
#include "PluginGate.h"
#include "SceneSearch.h"
#include "SceneVisitor.h"

#include "simulator/DemoHouse.h"
#include "simulator/MusicServerSimulator.h"
#include "support/Suite.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QSettings>
#include <QTcpServer>

namespace {

constexpr int patience = 30000; // milliseconds: the link needs eleven seconds to give a connection up
constexpr char password[] = "open sesame";

/// Stands in for the desktop's secret store.
class Secrets final : public SecretStore
{
public:
    using Kept = QHash<QString, QString>;
    enum Mood { Fine, Broken, Slow }; ///< a slow one answers when it is told to
    Secrets(Kept *kept, Mood mood) : m_kept(kept), m_mood(mood) { }

    void read(const QString &id) override
    {
        m_asked = id;
        if (m_mood != Slow)
            QTimer::singleShot(0, this, &Secrets::answer);
    }
    void answer() { Q_EMIT found(m_asked, m_kept->value(m_asked)); }
    void write(const QString &id, const QString &secret) override
    {
        if (m_mood == Broken)
            Q_EMIT failed(
                [] { return QStringLiteral("The password could not be kept: the store is shut."); });
        else
            m_kept->insert(id, secret);
    }
    void forget(const QString &id) override { m_kept->remove(id); }

private:
    Kept *m_kept;
    Mood m_mood;
    QString m_asked;
};

} // namespace

/// The host's own pages, with mouse and keys on its window, at simulated devices.
class HostPagesTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    // What works.
    void asksOnceForADevice_data();
    void asksOnceForADevice();
    void asksForThePasswordWithoutAStore();
    void changesBetweenDevices();
    void changesAndForgetsADevice();
    void speaksAnotherLanguageAtOnce();
    void tellsTheStateOfTheConnection();
    void closesWithEscapeWhatIsOpen();
    void leadsThroughTheBarWithKeys();
    void showsWholeWords_data();
    void showsWholeWords();
    void fillsTheScreenAndComesBack();
    void standsWhereItStood_data();
    void standsWhereItStood();

    // What goes wrong.
    void complainsAndKeepsWhatWasTyped_data();
    void complainsAndKeepsWhatWasTyped();
    void goesOnAtADeviceThatDoesNotAnswer_data();
    void goesOnAtADeviceThatDoesNotAnswer();
    void forgetsAnUnknownNameWithItsDevice();
    void tellsOfARefusalBehindTheClientsBack();
    void tellsOfAMusicServerThatIsSilent_data();
    void tellsOfAMusicServerThatIsSilent();
    void tellsThatTheStoreFails();
    void leavesWhatIsTypedToALateStore_data();
    void leavesWhatIsTypedToALateStore();
    void leavesOutDevicesThatMakeNoSense();

private:
    enum Store { NoStore, AStore, ABrokenStore, ASlowStore };
    struct Host
    {
        Host(const PluginGate &gate, const HostController::Demo &demo, std::unique_ptr<SecretStore> secrets)
            : controller(demo, std::move(secrets)), scene(gate, &controller, &preferences)
        {
        }
        HostPreferences preferences;
        HostController controller;
        HostScene scene;
    };

    void start(Store store = AStore);
    void enter(const QStringList &texts) const;
    void enterDevice(const DeviceSimulator &device, const QString &secret = u(password));
    void click(const QString &text) const;
    void openSettings() const;
    void openPlayer() const;
    void showFirstDevice();
    void press(const QVector<Qt::Key> &keys) const;
    QString notice() const;
    void touch(const char *picture) const;

    QQuickWindow *window() const { return m_host->scene.window(); }
    QQuickItem *root() const { return window()->contentItem(); }
    bool showsClient() const { return !said("Settings") && SceneSearch::ofType(root(), "OutputsView"); }
    bool said(const char *text) const { return SceneSearch::withText(root(), "text", u(text)); }
    QString focused() const { return window()->activeFocusItem()->parentItem()->parentItem()->objectName(); }
    QString wordForTrack() const;
    QByteArray settingsFile() const;
    static QString u(const char *text) { return QString::fromUtf8(text); }

    PluginGate m_gate;
    DemoHouse m_demo;
    DeviceSimulator m_devices[2];
    Secrets::Kept m_secrets;
    Secrets *m_store = nullptr; // the host's
    std::unique_ptr<Host> m_host;
};

void HostPagesTest::initTestCase()
{
    qputenv("HALVORA_PLUGIN_DIR", HALVORA_LIB_DIR);
    QVERIFY2(m_gate.load(), qPrintable(m_gate.error()));
    substituteFonts();
    QVERIFY(m_demo.start());
    for (DeviceSimulator &device : m_devices) {
        DeviceState state = device.state();
        for (SourceState &source : state.sources)
            source.hasPlayer = false; // nobody plays here
        device.setState(state);
        QVERIFY(device.listen());
        device.setCredentials(u("anna"), u(password));
    }
}

void HostPagesTest::init()
{
    m_host.reset();
    QSettings().clear();
    m_secrets.clear();
    for (DeviceSimulator &device : m_devices) {
        device.faults() = {};
        QTRY_COMPARE_WITH_TIMEOUT(device.liveConnections(), 0, patience);
        device.clearReceived();
    }
}

/// As if the host were started now; one that runs ends first.
void HostPagesTest::start(Store store)
{
    m_host.reset();
    std::unique_ptr<SecretStore> secrets;
    if (store != NoStore) {
        const Secrets::Mood moods[] = {Secrets::Fine, Secrets::Fine, Secrets::Broken, Secrets::Slow};
        secrets = std::make_unique<Secrets>(&m_secrets, moods[store]);
        m_store = static_cast<Secrets *>(secrets.get());
    }
    const auto demo = [this](DeviceAccess *access, QString *) {
        *access = {{m_demo.deviceHost(), m_demo.devicePort()}, u("demo"), u("demo")};
        return true;
    };
    m_host = std::make_unique<Host>(m_gate, demo, std::move(secrets));
    QVERIFY(m_host->preferences.speak(m_host->preferences.language()));
    m_host->controller.showLast();
    QVERIFY2(m_host->scene.show(false, {}, WindowPlace::Memory::Used), qPrintable(m_host->scene.error()));
    window()->requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(window()));
}

/// Types into one field after the other, from the one that has the keys; the tabulator leads on.
void HostPagesTest::enter(const QStringList &texts) const
{
    for (int i = 0; i < texts.size(); ++i) {
        QTest::keyClick(window(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(window(), Qt::Key_Delete);
        for (const QChar &letter : texts.at(i))
            QTest::keyClick(window(), letter.toLatin1());
        if (i + 1 < texts.size())
            QTest::keyClick(window(), Qt::Key_Tab);
    }
}

void HostPagesTest::enterDevice(const DeviceSimulator &device, const QString &secret)
{
    enter({device.host(), QString::number(device.port()), u("anna"), secret});
}

void HostPagesTest::click(const QString &text) const
{
    const auto *item = SceneSearch::withText(root(), "text", text);
    QVERIFY2(item, qPrintable(text));
    QTest::mouseClick(window(), Qt::LeftButton, {},
                      item->mapToScene(item->boundingRect().center()).toPoint());
}

void HostPagesTest::openSettings() const
{
    const auto *button = SceneSearch::withText(root(), "objectName", u("settingsButton"));
    QVERIFY(button);
    QTest::mouseClick(window(), Qt::LeftButton, {}, button->mapToScene({40, 30}).toPoint());
    QVERIFY(said("Settings"));
}

/// The player screen of the first output, when its song is there.
void HostPagesTest::openPlayer() const
{
    const SceneVisitor visitor(window());
    QTRY_VERIFY_WITH_TIMEOUT(visitor.covers("OutputsView") >= 2, patience);
    QVERIFY(visitor.tapNth("CoverImgS", 0));
    QTRY_VERIFY_WITH_TIMEOUT(visitor.covers("PlayerView") >= 1, patience);
}

/// As a person types it in at the first start.
void HostPagesTest::showFirstDevice()
{
    enterDevice(m_devices[0]);
    QTest::keyClick(window(), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
}

void HostPagesTest::press(const QVector<Qt::Key> &keys) const
{
    for (const Qt::Key key : keys)
        QTest::keyClick(window(), key);
}

/// What the line above the tabs says; empty without a line.
QString HostPagesTest::notice() const
{
    const auto *label = SceneSearch::withText(root(), "objectName", u("notice"));
    return label ? label->property("text").toString() : QString();
}

void HostPagesTest::touch(const char *picture) const
{
    const SceneVisitor visitor(window());
    QVERIFY2(QTest::qWaitFor([&] { return visitor.tap("source", u(picture)); }, patience), picture);
}

/// As the client translates it now.
QString HostPagesTest::wordForTrack() const
{
    QQmlComponent component(qmlEngine(window()));
    component.setData("import com.kestrum.translations 1.0\nDynamicTranslator {}", QUrl());
    const std::unique_ptr<QObject> translator(component.create());
    QString text;
    QMetaObject::invokeMethod(translator.get(), "translate", Q_RETURN_ARG(QString, text),
                              Q_ARG(QString, u("track")));
    return text;
}

QByteArray HostPagesTest::settingsFile() const
{
    QFile file(QSettings().fileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void HostPagesTest::asksOnceForADevice_data()
{
    QTest::addColumn<bool>("withKeys");
    QTest::newRow("with keys") << true;
    QTest::newRow("with the button") << false;
}

void HostPagesTest::asksOnceForADevice()
{
    QFETCH(bool, withKeys);
    start();
    QVERIFY(said("Try the demo"));
    enterDevice(m_devices[0]);
    if (withKeys)
        QTest::keyClick(window(), Qt::Key_Return);
    else
        click(u("Connect"));
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
    QCOMPARE(m_secrets.values(), QStringList{u(password)});
    QVERIFY2(settingsFile().contains("anna"), settingsFile());
    QVERIFY2(!settingsFile().contains("sesame"), settingsFile());

    start();
    QTRY_COMPARE_WITH_TIMEOUT(m_devices[0].joinedConnections(), 1, patience);
    QVERIFY(showsClient() && !said("Connect"));
}

void HostPagesTest::asksForThePasswordWithoutAStore()
{
    start(NoStore);
    showFirstDevice();
    QVERIFY2(!settingsFile().contains("sesame"), settingsFile());

    start(NoStore);
    QVERIFY(said("Connect"));
    QCOMPARE(focused(), u("password"));
    enter({u(password)});
    QTest::keyClick(window(), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
    QCOMPARE(m_devices[0].joinedConnections(), 1);
}

void HostPagesTest::changesBetweenDevices()
{
    start();
    click(u("Try the demo"));
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
    openSettings();
    QTRY_VERIFY_WITH_TIMEOUT(said("Connected to the demo."), patience);
    for (const QString &name : {u("Town"), u("Country")}) {
        click(u("Add a device"));
        const DeviceSimulator &device = m_devices[name == u("Country") ? 1 : 0];
        enter({name, device.host(), QString::number(device.port()), u("anna"), u(password)});
        click(u("Keep"));
        QVERIFY(said(qPrintable(name)));
    }
    for (const int chosen : {1, 0, 1}) {
        const QPointer<QQuickItem> before = SceneSearch::ofType(root(), "OutputsView");
        QVERIFY(before->property("halvora").value<QObject *>());
        click(chosen ? u("Country") : u("Town"));
        QTRY_VERIFY_WITH_TIMEOUT(said(chosen ? "Connected to Country." : "Connected to Town."), patience);
        QTRY_COMPARE_WITH_TIMEOUT(m_devices[1 - chosen].liveConnections(), 0, patience);
        QCOMPARE(m_devices[chosen].joinedConnections(), 1);
        QTRY_VERIFY_WITH_TIMEOUT(!before, patience); // no screen of the other device is left
    }
    start();
    QTRY_COMPARE_WITH_TIMEOUT(m_devices[1].joinedConnections(), 1, patience);
}

void HostPagesTest::changesAndForgetsADevice()
{
    start();
    showFirstDevice();
    openSettings();
    click(u("Change"));
    enter({u("House"), m_devices[1].host(), QString::number(m_devices[1].port())});
    QTest::keyClick(window(), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(said("Connected to House."), patience);
    QCOMPARE(m_devices[1].joinedConnections(), 1); // with the password that was known
    click(u("Forget"));
    QVERIFY(!said("House"));
    QTRY_COMPARE_WITH_TIMEOUT(m_devices[1].liveConnections(), 0, patience);
    QCOMPARE(m_secrets.size(), 0);
    QTest::keyClick(window(), Qt::Key_Escape);
    QVERIFY(said("Try the demo"));
}

void HostPagesTest::speaksAnotherLanguageAtOnce()
{
    start();
    click(u("Try the demo"));
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
    QCOMPARE(wordForTrack(), u("Tracks"));
    openSettings();
    click(u("Italiano"));
    QVERIFY(said("Impostazioni") && !said("Settings"));
    QTRY_VERIFY_WITH_TIMEOUT(said("Connesso alla demo."), patience);
    QCOMPARE(wordForTrack(), u("Tracce"));
    click(u("Deutsch"));
    QVERIFY(said("Einstellungen") && said("Gerät hinzufügen"));
    QTRY_VERIFY_WITH_TIMEOUT(said("Mit der Demo verbunden."), patience);
    QCOMPARE(wordForTrack(), u("Titel"));
    click(u("Zurück"));
    openPlayer(); // the client that was made anew works
    start();
    QCOMPARE(m_host->preferences.language(), u("de"));
}

void HostPagesTest::tellsTheStateOfTheConnection()
{
    m_devices[0].faults().ignoreLogin = true;
    m_devices[0].stopListening();
    start();
    enterDevice(m_devices[0]);
    QTest::keyClick(window(), Qt::Key_Return);
    QVERIFY(said(qPrintable(u("Reaching for 127.0.0.1:%1 ...").arg(m_devices[0].port()))));
    QVERIFY(m_devices[0].listenAgain());
    QTest::keyClick(window(), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(said("Waiting for the device to accept anna. A refusal looks the same."),
                             patience);
    m_devices[0].faults() = {};
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
    openSettings();
    QVERIFY(said("Connected to 127.0.0.1."));
    m_devices[0].stopListening();
    m_devices[0].dropAll();
    QTRY_VERIFY_WITH_TIMEOUT(said("The connection was lost; trying again."), patience);
    QVERIFY(m_devices[0].listenAgain());
    QTRY_VERIFY_WITH_TIMEOUT(said("Connected to 127.0.0.1."), patience);
}

void HostPagesTest::closesWithEscapeWhatIsOpen()
{
    start();
    click(u("Try the demo"));
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
    openPlayer();
    touch("/queue.png");
    touch("/save.png");
    const SceneVisitor visitor(window());
    QTRY_VERIFY_WITH_TIMEOUT(visitor.sees("PlaylistSaveDialog"), patience);
    QTest::keyClick(window(), Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(visitor.sees("QueueView") && !visitor.sees("PlaylistSaveDialog"), patience);
    QTest::keyClick(window(), Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(!visitor.sees("QueueView"), patience);
    openSettings();
    click(u("Add a device"));
    QTest::keyClick(window(), Qt::Key_Escape);
    QVERIFY(said("Add a device"));
    QTest::keyClick(window(), Qt::Key_Escape);
    QVERIFY(!said("Settings") && visitor.sees("PlayerView"));
}

void HostPagesTest::leadsThroughTheBarWithKeys()
{
    start();
    click(u("Try the demo"));
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
    const auto hasKeys = [this](const char *tab) {
        return window()->activeFocusItem()->objectName() == u(tab);
    };
    press({Qt::Key_Tab});
    QVERIFY(hasKeys("outputsTab"));
    const QImage marked = window()->grabWindow();
    press({Qt::Key_Right}); // there is no output chosen yet, so the player is passed over
    QVERIFY(hasKeys("settingsButton"));
    const QRect tab(2, window()->height() - 68, 60, 60);
    QVERIFY(marked.copy(tab) != window()->grabWindow().copy(tab)); // where the keys go can be seen
    press({Qt::Key_Return});
    QVERIFY(said("Settings"));
    press({Qt::Key_Escape});
    openPlayer();
    touch("/output.png");
    press({Qt::Key_Tab, Qt::Key_Right});
    QVERIFY(hasKeys("playerTab"));
    press({Qt::Key_Space});
    QVERIFY(SceneSearch::ofType(root(), "PlayerView"));
    press({Qt::Key_Left, Qt::Key_Enter});
    QVERIFY(SceneSearch::ofType(root(), "OutputsView"));
}

void HostPagesTest::showsWholeWords_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("pages"); // what is clicked, from the first page on
    QTest::newRow("English") << u("en") << QStringList{u("Settings"), u("Add a device")};
    QTest::newRow("German") << u("de") << QStringList{u("Einstellungen"), u("Gerät hinzufügen")};
    QTest::newRow("Italian") << u("it") << QStringList{u("Impostazioni"), u("Aggiungi un dispositivo")};
}

void HostPagesTest::showsWholeWords()
{
    QFETCH(QString, language);
    QFETCH(QStringList, pages);
    QSettings().setValue(u("language"), language);
    start();
    m_host->controller.keep(
        -1, {{u("name"), u("House")}, {u("host"), u("127.0.0.1")}, {u("port"), 5000}, {u("user"), u("a")}});
    window()->resize(window()->minimumSize());
    QTRY_COMPARE(root()->size().toSize(), window()->minimumSize());
    pages.prepend(QString());
    for (const QString &page : qAsConst(pages)) {
        if (!page.isEmpty())
            click(page);
        const auto labels = SceneSearch::allOfType(root(), "HostLabel");
        QVERIFY(labels.size() > 5);
        QCOMPARE(said("House"), page == pages.at(1));
        for (const QQuickItem *label : labels) {
            const QString text = label->property("text").toString();
            QVERIFY2(!label->property("truncated").toBool(), qPrintable(text));
            QVERIFY2(label->property("paintedWidth").toReal() <= label->width(), qPrintable(text));
            QVERIFY2(label->mapRectToScene(label->boundingRect()).right() <= root()->width(),
                     qPrintable(text));
        }
    }
}

void HostPagesTest::fillsTheScreenAndComesBack()
{
    const QSize size(360, 540);
    start();
    window()->resize(size);
    QTRY_COMPARE(window()->size(), size);
    QCoreApplication::processEvents();
    QTest::keyClick(window(), Qt::Key_F11);
    QTRY_COMPARE(window()->size(), window()->screen()->size());
    start();
    QTRY_COMPARE(window()->size(), window()->screen()->size());
    QTest::keyClick(window(), Qt::Key_F11);
    QTRY_COMPARE(window()->size(), size);
}

void HostPagesTest::standsWhereItStood_data()
{
    QTest::addColumn<QRect>(
        "left"); // the frame's place and the size that were kept, on a screen of 800 by 600
    QTest::addColumn<QRect>("stands");
    QTest::newRow("on the screen") << QRect(30, 40, 360, 540) << QRect(30, 40, 360, 540);
    QTest::newRow("to the left of it") << QRect(-5000, 40, 360, 540) << QRect(0, 40, 360, 540);
    QTest::newRow("below it") << QRect(30, 5000, 360, 540) << QRect(30, 60, 360, 540);
    QTest::newRow("larger than it") << QRect(0, 0, 4000, 4000) << QRect(0, 0, 800, 600);
    QTest::newRow("too small") << QRect(10, 10, 1, 1) << QRect(10, 10, 340, 520);
}

void HostPagesTest::standsWhereItStood()
{
    QFETCH(QRect, left);
    QFETCH(QRect, stands);
    QCOMPARE(QGuiApplication::primaryScreen()->size(), QSize(800, 600));
    QSettings().setValue(u("window/position"), left.topLeft());
    QSettings().setValue(u("window/size"), left.size());
    for (int run = 0; run < 2; ++run) {
        start();
        QTRY_COMPARE(QRect(window()->framePosition(), window()->size()), stands);
    }
    window()->setFramePosition({50, 20});
    window()->resize(400, 530);
    start();
    QTRY_COMPARE(QRect(window()->framePosition(), window()->size()), QRect(50, 20, 400, 530));
}

void HostPagesTest::complainsAndKeepsWhatWasTyped_data()
{
    QTest::addColumn<QStringList>("typed"); // address, port, user, password
    QTest::addColumn<QString>("complaint");
    const QString port = u("The port is a number from 1 to 65535.");
    QTest::newRow("no address") << QStringList{u(""), u("5000"), u("a"), u("b")}
                                << u("The address of the device is missing.");
    QTest::newRow("blank") << QStringList{u("a b"), u("5000"), u("a"), u("b")}
                           << u("\"a b\" is no address; a name or, for example, 192.168.1.20 is.");
    for (const char *wrong : {"", "0", "65536", "12x", "-1"})
        QTest::newRow(qPrintable(u("port ") + u(wrong)))
            << QStringList{u("127.0.0.1"), u(wrong), u("a"), u("b")} << port;
    QTest::newRow("no user") << QStringList{u("127.0.0.1"), u("5000"), u(" "), u("b")}
                             << u("The name of the user is missing.");
    QTest::newRow("bar") << QStringList{u("127.0.0.1"), u("5000"), u("a|b"), u("b")}
                         << u("The name of the user cannot hold \"|\".");
    QTest::newRow("no password") << QStringList{u("127.0.0.1"), u("5000"), u("a"), u("")}
                                 << u("The password is missing.");
}

void HostPagesTest::complainsAndKeepsWhatWasTyped()
{
    QFETCH(QStringList, typed);
    QFETCH(QString, complaint);
    start();
    enter(typed);
    QTest::keyClick(window(), Qt::Key_Return);
    QVERIFY(said(qPrintable(complaint)));
    const char *const fields[] = {"host", "port", "user", "password"};
    for (int i = 0; i < 4; ++i)
        QCOMPARE(SceneSearch::withText(root(), "objectName", u(fields[i]))->property("text").toString(),
                 typed.at(i));
    QCOMPARE(m_host->controller.deviceHost(), QString());
    QCOMPARE(m_host->controller.devices()->count(), 0);
}

void HostPagesTest::goesOnAtADeviceThatDoesNotAnswer_data()
{
    QTest::addColumn<QString>("host"); // empty: the simulated one, which ends each connection at once
    QTest::addColumn<QString>("sentence");
    QTest::newRow("closes at once") << QString()
                                    << u("Waiting for the device to accept anna. A refusal looks the same.");
    QTest::newRow("no such name") << u("no-such-box.invalid")
                                  << u("The network knows no \"no-such-box.invalid\".");
}

void HostPagesTest::goesOnAtADeviceThatDoesNotAnswer()
{
    QFETCH(QString, host);
    QFETCH(QString, sentence);
    m_devices[0].faults().closeOnAccept = true;
    if (!host.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, qPrintable(sentence));
    start();
    enter({host.isEmpty() ? m_devices[0].host() : host, QString::number(m_devices[0].port()), u("anna"),
           u(password)});
    QTest::keyClick(window(), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(said(qPrintable(sentence)), patience);
    for (int field = 0; field < 3; ++field)
        QTest::keyClick(window(), Qt::Key_Backtab);
    enterDevice(m_devices[1]);
    QTest::keyClick(window(), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
    QCOMPARE(m_devices[1].joinedConnections(), 1);
    QCOMPARE(m_host->controller.problem(), QString());
    QCOMPARE(m_host->controller.devices()->count(), 1); // the wrong one was corrected
    QVERIFY(m_host->controller
                .connectTo({{u("host"), u("127.0.0.2")},
                            {u("port"), u("5000")},
                            {u("user"), u("anna")},
                            {u("password"), u(password)}})
                .isEmpty());
    QCOMPARE(m_host->controller.devices()->count(), 2); // the right one is kept
}

void HostPagesTest::forgetsAnUnknownNameWithItsDevice()
{
    const QString sentence = u("The network knows no \"no-such-box.invalid\".");
    start();
    const auto showUnknown = [&] {
        QTest::ignoreMessage(QtWarningMsg, qPrintable(sentence));
        m_host->controller.show(u("box"), {{u("no-such-box.invalid"), 5000}, u("anna"), u(password)});
        QTRY_COMPARE_WITH_TIMEOUT(notice(), sentence, patience);
    };
    showUnknown();
    m_host->controller.deviceAnswered(); // as when the name has become known meanwhile
    QCOMPARE(notice(), QString());
    showUnknown();
    m_host->controller.showDemo();
    QTRY_VERIFY_WITH_TIMEOUT(SceneVisitor(window()).covers("OutputsView") >= 2, patience);
    QCOMPARE(notice(), QString());

    m_host->controller.setProblem([] { return u("Something is wrong."); });
    m_host->controller.deviceAnswered();
    QCOMPARE(notice(), u("Something is wrong."));
    click(u("OK"));
    QCOMPARE(notice(), QString());
}

void HostPagesTest::tellsOfARefusalBehindTheClientsBack()
{
    const QString waits = u("Waiting for the device to accept anna. A refusal looks the same.");
    start();
    showFirstDevice();
    m_devices[0].faults().refuseLogin = true;
    m_devices[0].dropAll();
    QTRY_COMPARE_WITH_TIMEOUT(notice(), waits, patience);
    QVERIFY(!SceneSearch::ofType(root(), "ConnectionOverlay")); // the client says nothing
    openSettings();
    QVERIFY(said(qPrintable(waits)));
    m_devices[0].faults() = {};
    QTRY_VERIFY_WITH_TIMEOUT(said("Connected to 127.0.0.1."), patience);
    press({Qt::Key_Escape});
    QCOMPARE(notice(), QString());

    // Nothing emits this yet, but for a library that does.
    const auto *screen = SceneSearch::ofType(root(), "OutputsView");
    auto *link = screen->property("halvora").value<QObject *>()->property("connPointer").value<QObject *>();
    QVERIFY(QMetaObject::invokeMethod(link, "authenticationRefused"));
    QTRY_COMPARE(notice(), u("The device does not accept anna with this password."));
}

void HostPagesTest::tellsOfAMusicServerThatIsSilent_data()
{
    QTest::addColumn<bool>("answersFirst");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("missing") << false << u("The music servers of %1, %2 do not answer.");
    QTest::newRow("lost") << true << u("The music server of %1 does not answer.");
}

void HostPagesTest::tellsOfAMusicServerThatIsSilent()
{
    QFETCH(bool, answersFirst);
    QFETCH(QString, sentence);
    allow("qrc:/Qml/"); // the client's screens miss the song that plays
    QTcpServer nobody;
    QVERIFY(nobody.listen(QHostAddress::LocalHost)); // a port that takes connections, and never answers
    MusicServerSimulator server;
    QVERIFY(server.listen());
    DeviceState state = m_devices[0].state();
    const DeviceState before = state;
    for (int i = 0; i < (answersFirst ? 1 : 2); ++i) {
        state.sources[i].hasPlayer = true;
        state.sources[i].address = u("127.0.0.1");
        state.sources[i].port = QString::number(answersFirst ? server.port() : nobody.serverPort());
        sentence = sentence.arg(state.sources[i].name);
    }
    m_devices[0].setState(state);
    start();
    showFirstDevice();
    auto *watch = window()->findChild<QObject *>(u("musicServers"));
    if (answersFirst) {
        QTRY_VERIFY_WITH_TIMEOUT(server.liveSockets() == 1 && server.requests().size() > 6, patience);
        QCOMPARE(notice(), QString());
        watch->setProperty("laterPatience", 3000); // in place of more than a minute
        server.stopListening();
        server.dropAll();
    }
    QTRY_COMPARE_WITH_TIMEOUT(notice(), sentence, patience);
    openSettings();
    press({Qt::Key_Escape});
    QCOMPARE(notice(), sentence);
    m_devices[0].setState(before);
}

void HostPagesTest::tellsThatTheStoreFails()
{
    start(ABrokenStore);
    showFirstDevice();
    openSettings();
    QVERIFY(said("The password could not be kept: the store is shut."));
}

void HostPagesTest::leavesWhatIsTypedToALateStore_data()
{
    QTest::addColumn<bool>("types");
    QTest::newRow("a person types meanwhile") << true;
    QTest::newRow("nobody types") << false;
}

void HostPagesTest::leavesWhatIsTypedToALateStore()
{
    QFETCH(bool, types);
    start();
    showFirstDevice();
    start(ASlowStore);
    QVERIFY(said("Connect"));
    if (types)
        enter({u("half a pass")});
    m_store->answer();
    QCOMPARE(bool(said("Connect")), types);
    if (types) {
        QCOMPARE(SceneSearch::withText(root(), "objectName", u("password"))->property("text").toString(),
                 u("half a pass"));
        enter({u(password)});
        QTest::keyClick(window(), Qt::Key_Return);
    }
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_devices[0].joinedConnections(), 1, patience);
}

void HostPagesTest::leavesOutDevicesThatMakeNoSense()
{
    QSettings settings;
    settings.beginWriteArray(u("devices"), 1000000);
    const char *const ports[] = {"5000", "0", "x", "5001"};
    for (int row = 0; row < 4; ++row) {
        settings.setArrayIndex(row);
        settings.setValue(u("id"), row);
        settings.setValue(u("host"), u(row == 3 ? "a b" : "127.0.0.1"));
        settings.setValue(u("port"), u(ports[row]));
        settings.setValue(u("user"), u("anna"));
    }
    settings.endArray();
    settings.setValue(u("currentDevice"), u("3"));
    settings.setValue(u("language"), u("fr"));
    settings.sync();
    QTest::ignoreMessage(QtWarningMsg, "The settings name a language that is not known: \"fr\".");
    start();
    QVERIFY(said("Connect"));
    QCOMPARE(m_host->controller.devices()->count(), 1);
    QCOMPARE(m_host->preferences.language(), u("en"));
}

HALVORA_SUITE_MAIN(HostPagesTest)

#include "tst_hostpages.moc"
