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
#include "support/Suite.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QSettings>

namespace {

constexpr int patience = 30000; // milliseconds: the link needs eleven seconds to give a connection up
constexpr char password[] = "open sesame";

/// Stands in for the desktop's secret store.
class Secrets final : public SecretStore
{
public:
    using Kept = QHash<QString, QString>;
    Secrets(Kept *kept, bool broken) : m_kept(kept), m_broken(broken) { }

    void read(const QString &id) override
    {
        QTimer::singleShot(0, this, [this, id] { Q_EMIT found(id, m_kept->value(id)); });
    }
    void write(const QString &id, const QString &secret) override
    {
        if (m_broken)
            Q_EMIT failed(QStringLiteral("The password could not be kept: the store is shut."));
        else
            m_kept->insert(id, secret);
    }
    void forget(const QString &id) override { m_kept->remove(id); }

private:
    Kept *m_kept;
    bool m_broken;
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
    void fillsTheScreenAndComesBack();
    void standsWhereItStood_data();
    void standsWhereItStood();

    // What goes wrong.
    void complainsAndKeepsWhatWasTyped_data();
    void complainsAndKeepsWhatWasTyped();
    void goesOnAtADeviceThatDoesNotAnswer_data();
    void goesOnAtADeviceThatDoesNotAnswer();
    void tellsThatTheStoreFails();
    void leavesOutDevicesThatMakeNoSense();

private:
    enum Store { NoStore, AStore, ABrokenStore };
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
    if (store != NoStore)
        secrets = std::make_unique<Secrets>(&m_secrets, store == ABrokenStore);
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
    enterDevice(m_devices[0]);
    QTest::keyClick(window(), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
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
        const QQuickItem *const before = SceneSearch::ofType(root(),
                                                             "OutputsView"); // the client never deletes it
        QVERIFY(before->property("halvora").value<QObject *>());
        click(chosen ? u("Country") : u("Town"));
        QTRY_VERIFY_WITH_TIMEOUT(said(chosen ? "Connected to Country." : "Connected to Town."), patience);
        QTRY_COMPARE_WITH_TIMEOUT(m_devices[1 - chosen].liveConnections(), 0, patience);
        QCOMPARE(m_devices[chosen].joinedConnections(), 1);
        QVERIFY(!before->property("halvora").value<QObject *>());
    }
    start();
    QTRY_COMPARE_WITH_TIMEOUT(m_devices[1].joinedConnections(), 1, patience);
}

void HostPagesTest::changesAndForgetsADevice()
{
    start();
    enterDevice(m_devices[0]);
    QTest::keyClick(window(), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
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
    click(u("Deutsch"));
    QTRY_VERIFY_WITH_TIMEOUT(said("Connected to the demo."), patience);
    QCOMPARE(wordForTrack(), u("Titel"));
    click(u("Back"));
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
    QCOMPARE(m_host->controller.devices()->count(), 1); // the wrong one was corrected
    QVERIFY(m_host->controller.connectTo({{u("host"), u("127.0.0.2")},
                                          {u("port"), u("5000")},
                                          {u("user"), u("anna")},
                                          {u("password"), u(password)}})
                .isEmpty());
    QCOMPARE(m_host->controller.devices()->count(), 2); // the right one is kept
}

void HostPagesTest::tellsThatTheStoreFails()
{
    start(ABrokenStore);
    enterDevice(m_devices[0]);
    QTest::keyClick(window(), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(showsClient() && !said("Connect"), patience);
    openSettings();
    QVERIFY(said("The password could not be kept: the store is shut."));
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
    QTest::ignoreMessage(QtWarningMsg, "the settings name a language that is not known: \"fr\"");
    start();
    QVERIFY(said("Connect"));
    QCOMPARE(m_host->controller.devices()->count(), 1);
    QCOMPARE(m_host->preferences.language(), u("en"));
}

HALVORA_SUITE_MAIN(HostPagesTest)

#include "tst_hostpages.moc"
