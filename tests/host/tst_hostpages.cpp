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

#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRandomGenerator>
#include <QScreen>
#include <QSettings>
#include <QTcpServer>

namespace {

constexpr int patience = 30000; // milliseconds: the link needs eleven seconds to give a connection up
constexpr char password[] = "open sesame";
constexpr char waiting[] = "Waiting for the device to accept anna. A refusal looks the same.";

/// Stands in for the desktop's secret store.
class Secrets final : public SecretStore
{
public:
    using Kept = QHash<QString, QString>;
    enum Mood { Missing, Fine, Broken, Slow }; ///< a slow one answers when it is told to
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
    void changesBetweenDevices();
    void changesAndForgetsADevice();
    void speaksAnotherLanguageAtOnce();
    void tellsTheStateOfTheConnection();
    void closesWithEscapeWhatIsOpen();
    void leadsThroughTheBar();
    void standsOnWholePixels();
    void leavesAndReturnsWithTheWindow();
    void endsWithWordsUnderWay();
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
    void tellsOfAMusicServerThatIsSilent_data();
    void tellsOfAMusicServerThatIsSilent();
    void tellsThatTheStoreFails();
    void leavesWhatIsTypedToALateStore();
    void leavesOutDevicesThatMakeNoSense();
    void somebodyTouchesEverything_data();
    void somebodyTouchesEverything();

private:
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

    void start(Secrets::Mood store = Secrets::Fine);
    void showDemo();
    void enter(const QStringList &texts) const;
    void enterDevice(const DeviceSimulator &device, const QString &secret = u(password));
    void click(const QString &text) const;
    void openSettings() const;
    void openPlayer() const;
    void showFirstDevice(Secrets::Mood store = Secrets::Fine);
    void press(const QVector<Qt::Key> &keys) const;
    QString textOf(const char *name) const;
    QString notice() const { return textOf("notice"); } ///< the line above the tabs
    void touch(const char *picture) const;
    void touchSomething(QRandomGenerator *chance) const;

    QQuickWindow *window() const { return m_host->scene.window(); }
    QQuickItem *root() const { return window()->contentItem(); }
    bool shows(const char *screen) const { return SceneSearch::ofType(root(), screen); }
    bool showsClient() const { return !said("Settings") && !said("Connect") && shows("OutputsView"); }
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
void HostPagesTest::start(Secrets::Mood store)
{
    m_host.reset();
    std::unique_ptr<SecretStore> secrets;
    if (store != Secrets::Missing)
        secrets.reset(m_store = new Secrets(&m_secrets, store));
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

void HostPagesTest::showDemo()
{
    start();
    click(u("Try the demo"));
    QTRY_VERIFY_WITH_TIMEOUT(showsClient(), patience);
}

/// Types into one field after the other, from the one that has the keys; the tabulator leads on.
void HostPagesTest::enter(const QStringList &texts) const
{
    for (int i = 0; i < texts.size(); ++i) {
        QTest::keyClick(window(), Qt::Key_A, Qt::ControlModifier);
        press({Qt::Key_Delete});
        for (const QChar &letter : texts.at(i))
            QTest::keyClick(window(), letter.toLatin1());
        if (i + 1 < texts.size())
            press({Qt::Key_Tab});
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
    // A page that has just been made is laid out by levels, one ahead of each frame: column, column, row.
    for (int frame = 0; frame < 5; ++frame) {
        QSignalSpy drawn(window(), &QQuickWindow::frameSwapped);
        window()->update();
        QVERIFY(drawn.wait(patience));
    }
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
void HostPagesTest::showFirstDevice(Secrets::Mood store)
{
    start(store);
    enterDevice(m_devices[0]);
    press({Qt::Key_Return});
    QTRY_VERIFY_WITH_TIMEOUT(showsClient(), patience);
}

void HostPagesTest::press(const QVector<Qt::Key> &keys) const
{
    for (const Qt::Key key : keys)
        QTest::keyClick(window(), key);
}

/// Of the item with that name; empty without one.
QString HostPagesTest::textOf(const char *name) const
{
    const auto *item = SceneSearch::withText(root(), "objectName", u(name));
    return item ? item->property("text").toString() : QString();
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
    QTest::addColumn<bool>("hasStore");
    QTest::newRow("and for its password") << true;
    QTest::newRow("and for the password at each start") << false;
}

void HostPagesTest::asksOnceForADevice()
{
    QFETCH(bool, hasStore);
    start(hasStore ? Secrets::Fine : Secrets::Missing);
    QVERIFY(said("Try the demo"));
    QTRY_VERIFY(
        window()->findChild<QObject *>(u("settingsState"))); // a page made behind this one takes no keys
    enterDevice(m_devices[0]);
    if (hasStore)
        click(u("Connect"));
    else
        press({Qt::Key_Return});
    QTRY_VERIFY_WITH_TIMEOUT(showsClient(), patience);
    QCOMPARE(m_secrets.values(), hasStore ? QStringList{u(password)} : QStringList());
    QVERIFY2(settingsFile().contains("anna") && !settingsFile().contains("sesame"), settingsFile());

    start(hasStore ? Secrets::Fine : Secrets::Missing);
    if (!hasStore) {
        QVERIFY(said("Connect"));
        QCOMPARE(focused(), u("password"));
        enter({u(password)});
        press({Qt::Key_Return});
    }
    QTRY_VERIFY_WITH_TIMEOUT(showsClient(), patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_devices[0].joinedConnections(), 1, patience);
}

void HostPagesTest::changesBetweenDevices()
{
    showDemo();
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
    showFirstDevice();
    openSettings();
    click(u("Change"));
    enter({u("House"), m_devices[1].host(), QString::number(m_devices[1].port())});
    press({Qt::Key_Return});
    QTRY_VERIFY_WITH_TIMEOUT(said("Connected to House."), patience);
    QCOMPARE(m_devices[1].joinedConnections(), 1); // with the password that was known
    click(u("Forget"));
    QVERIFY(!said("House"));
    QTRY_COMPARE_WITH_TIMEOUT(m_devices[1].liveConnections(), 0, patience);
    QCOMPARE(m_secrets.size(), 0);
    press({Qt::Key_Escape});
    QVERIFY(said("Try the demo"));
}

void HostPagesTest::speaksAnotherLanguageAtOnce()
{
    showDemo();
    QCOMPARE(wordForTrack(), u("Tracks"));
    openSettings();
    click(u("Italiano"));
    QCOMPARE(wordForTrack(), u("Tracce"));
    click(u("Deutsch"));
    QVERIFY(said("Einstellungen") && said("Gerät hinzufügen") && !said("Settings"));
    QTRY_VERIFY_WITH_TIMEOUT(said("Mit der Demo verbunden."), patience);
    QCOMPARE(wordForTrack(), u("Titel"));
    click(u("Zurück"));
    openPlayer(); // the client that was made anew works
    start();
    QCOMPARE(m_host->preferences.language(), u("de"));
}

void HostPagesTest::tellsTheStateOfTheConnection()
{
    DeviceSimulator &device = m_devices[0];
    device.faults().ignoreLogin = true;
    device.stopListening();
    start();
    enterDevice(device);
    press({Qt::Key_Return});
    QVERIFY(said(qPrintable(u("Reaching for 127.0.0.1:%1 ...").arg(device.port()))));
    QVERIFY(device.listenAgain());
    press({Qt::Key_Return});
    QTRY_VERIFY_WITH_TIMEOUT(said(waiting), patience);
    device.faults() = {};
    QTRY_VERIFY_WITH_TIMEOUT(showsClient(), patience);
    openSettings();
    QVERIFY(said("Connected to 127.0.0.1."));
    device.stopListening();
    device.dropAll();
    QTRY_VERIFY_WITH_TIMEOUT(said("The connection was lost; trying again."), patience);
    QVERIFY(device.listenAgain());
    QTRY_VERIFY_WITH_TIMEOUT(said("Connected to 127.0.0.1."), patience);
    press({Qt::Key_Escape});
    device.faults().refuseLogin = true;
    device.dropAll();
    QTRY_COMPARE_WITH_TIMEOUT(notice(), u(waiting), patience);
    QVERIFY(!shows("ConnectionOverlay")); // the client says nothing
    device.faults() = {};
    QTRY_COMPARE_WITH_TIMEOUT(notice(), QString(), patience);

    // Nothing emits this yet, but for a library that does.
    const auto *screen = SceneSearch::ofType(root(), "OutputsView");
    auto *link = screen->property("halvora").value<QObject *>()->property("connPointer").value<QObject *>();
    QVERIFY(QMetaObject::invokeMethod(link, "authenticationRefused"));
    QTRY_COMPARE(notice(), u("The device does not accept anna with this password."));
}

void HostPagesTest::closesWithEscapeWhatIsOpen()
{
    showDemo();
    openPlayer();
    touch("/queue.png");
    touch("/save.png");
    const SceneVisitor visitor(window());
    QTRY_VERIFY_WITH_TIMEOUT(visitor.sees("PlaylistSaveDialog"), patience);
    press({Qt::Key_Escape});
    QTRY_VERIFY_WITH_TIMEOUT(visitor.sees("QueueView") && !visitor.sees("PlaylistSaveDialog"), patience);
    press({Qt::Key_Escape});
    QTRY_VERIFY_WITH_TIMEOUT(!visitor.sees("QueueView"), patience);
    openSettings();
    click(u("Add a device"));
    press({Qt::Key_Escape});
    QVERIFY(said("Add a device"));
    press({Qt::Key_Escape});
    QVERIFY(!said("Settings") && visitor.sees("PlayerView"));
}

void HostPagesTest::leadsThroughTheBar()
{
    showDemo();
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
    const auto clickTab = [this](int tab) {
        const QPoint place((window()->width() - 85) / 4 * (1 + 2 * tab), window()->height() - 30);
        QTest::mouseClick(window(), Qt::LeftButton, {}, place);
        return SceneSearch::withText(root(), "source", u(tab ? "/halvora_sel_0.png" : "/output_sel_0.png"))
            && shows(tab ? "PlayerView" : "OutputsView") && !shows(tab ? "OutputsView" : "PlayerView");
    };
    QVERIFY(!clickTab(1));
    openPlayer();
    for (const int wanted : {0, 1, 1, 0})
        QVERIFY(clickTab(wanted));
    press({Qt::Key_Tab, Qt::Key_Right});
    QVERIFY(hasKeys("playerTab"));
    press({Qt::Key_Space});
    QVERIFY(shows("PlayerView"));
    press({Qt::Key_Left, Qt::Key_Enter});
    QVERIFY(shows("OutputsView"));
}

void HostPagesTest::standsOnWholePixels()
{
    showFirstDevice();
    QCOMPARE(window()->size(), QSize(450, 710));
    for (const QSize &size : {QSize(450, 710), QSize(601, 811)}) {
        window()->resize(size);
        const auto *screen = SceneSearch::ofType(root(), "OutputsView");
        QTRY_COMPARE(screen->mapRectToScene(screen->boundingRect()),
                     QRectF(0, 0, size.width(), size.height() - 70));
        const auto *player = SceneSearch::withText(root(), "source", u("/halvora.png"));
        QCOMPARE(player->size(), QSizeF(75, 65)); // the picture's own
        QCOMPARE(player->mapToScene({}), QPointF(player->mapToScene({}).toPoint()));
    }
}

void HostPagesTest::leavesAndReturnsWithTheWindow()
{
    showFirstDevice();
    window()->showMinimized();
    QTRY_COMPARE_WITH_TIMEOUT(m_devices[0].liveConnections(), 0, patience);
    window()->showNormal();
    QTRY_COMPARE_WITH_TIMEOUT(m_devices[0].joinedConnections(), 1, patience);
    const int accepted = m_devices[0].acceptedConnections();
    const auto *presence = window()->findChild<QObject *>(u("presence"));
    for (const int changes : {20, 21}) {
        for (int change = 0; change < changes; ++change) {
            window()->setWindowState(change % 2 == 0 ? Qt::WindowMinimized : Qt::WindowNoState);
            QCoreApplication::processEvents();
        }
        QTRY_VERIFY_WITH_TIMEOUT(presence->property("settled").toBool(), patience);
        QTRY_COMPARE_WITH_TIMEOUT(m_devices[0].joinedConnections(), changes % 2 ? 0 : 1, patience);
        QCOMPARE(m_devices[0].acceptedConnections(), accepted); // the link was never ended for nothing
    }
}

/// The host ends while the last words of the link's thread wait to be heard. A sanitized build tells what is lost then.
void HostPagesTest::endsWithWordsUnderWay()
{
    showFirstDevice();
    auto *presence = window()->findChild<QObject *>(u("presence"));
    QVERIFY(presence->setProperty("foreground", false)); // returns when the thread has ended
    m_host.reset();
    QTRY_COMPARE_WITH_TIMEOUT(m_devices[0].liveConnections(), 0, patience);
}

void HostPagesTest::showsWholeWords_data()
{
    QTest::addColumn<QStringList>("pages"); // what is clicked, from the first page on
    QTest::newRow("de") << QStringList{u("Einstellungen"), u("Gerät hinzufügen")};
    QTest::newRow("it") << QStringList{u("Impostazioni"), u("Aggiungi un dispositivo")};
}

void HostPagesTest::showsWholeWords()
{
    QFETCH(QStringList, pages);
    QSettings().setValue(u("language"), u(QTest::currentDataTag()));
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
            QVERIFY2(!label->property("truncated").toBool()
                         && label->property("paintedWidth").toReal() <= label->width()
                         && label->mapRectToScene(label->boundingRect()).right() <= root()->width(),
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
    press({Qt::Key_F11});
    QTRY_COMPARE(window()->size(), window()->screen()->size());
    start();
    QTRY_COMPARE(window()->size(), window()->screen()->size());
    press({Qt::Key_F11});
    QTRY_COMPARE(window()->size(), size);
}

void HostPagesTest::standsWhereItStood_data()
{
    // The frame's place and the size that were kept, on a screen of 800 by 600.
    QTest::addColumn<QRect>("left");
    QTest::addColumn<QRect>("stands");
    QTest::newRow("left of the screen") << QRect(-5000, 40, 360, 540) << QRect(0, 40, 360, 540);
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
    QTest::addColumn<QString>("typed"); // address, port, user, password
    QTest::addColumn<QString>("complaint");
    const auto row = [](const char *name, const char *typed, const char *complaint) {
        QTest::newRow(name) << u(typed) << u(complaint);
    };
    row("no address", ",5000,a,b", "The address of the device is missing.");
    row("blank", "a b,5000,a,b", "\"a b\" is no address; a name or, for example, 192.168.1.20 is.");
    row("port of letters", "127.0.0.1,12x,a,b", "The port is a number from 1 to 65535.");
    row("large port", "127.0.0.1,65536,a,b", "The port is a number from 1 to 65535.");
    row("no user", "127.0.0.1,5000, ,b", "The name of the user is missing.");
    row("bar", "127.0.0.1,5000,a|b,b", "The name of the user cannot hold \"|\".");
    row("no password", "127.0.0.1,5000,a,", "The password is missing.");
}

void HostPagesTest::complainsAndKeepsWhatWasTyped()
{
    QFETCH(QString, typed);
    QFETCH(QString, complaint);
    start();
    enter(typed.split(u(",")));
    press({Qt::Key_Return});
    QVERIFY(said(qPrintable(complaint)));
    QCOMPARE((QStringList{textOf("host"), textOf("port"), textOf("user"), textOf("password")}.join(u(","))),
             typed);
    QCOMPARE(m_host->controller.deviceHost(), QString());
    QCOMPARE(m_host->controller.devices()->count(), 0);
}

void HostPagesTest::goesOnAtADeviceThatDoesNotAnswer_data()
{
    QTest::addColumn<QString>("host"); // empty: the simulated one, which ends each connection at once
    QTest::addColumn<QString>("sentence");
    QTest::newRow("closes at once") << QString() << u(waiting);
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
    press({Qt::Key_Return});
    QTRY_VERIFY_WITH_TIMEOUT(said(qPrintable(sentence)), patience);
    press({Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Backtab});
    enterDevice(m_devices[1]);
    press({Qt::Key_Return});
    QTRY_VERIFY_WITH_TIMEOUT(showsClient(), patience);
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
    showFirstDevice(Secrets::Broken);
    openSettings();
    QVERIFY(said("The password could not be kept: the store is shut."));
}

void HostPagesTest::leavesWhatIsTypedToALateStore()
{
    showFirstDevice();
    start(Secrets::Slow);
    enter({u("half a pass")});
    m_store->answer();
    QVERIFY(said("Connect"));
    QCOMPARE(textOf("password"), u("half a pass"));
    enter({u(password)});
    press({Qt::Key_Return});
    QTRY_VERIFY_WITH_TIMEOUT(showsClient(), patience);
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

void HostPagesTest::somebodyTouchesEverything_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 2; ++seed)
        QTest::addRow("session %u", seed) << seed;
}

void HostPagesTest::touchSomething(QRandomGenerator *chance) const
{
    QVector<QPoint> places{{chance->bounded(window()->width()), chance->bounded(window()->height())}};
    for (const QQuickItem *item : SceneSearch::visibleItems(root())) {
        const QByteArray type = item->metaObject()->className();
        if (type.contains("Button") || type.contains("Text") || type.contains("Label")
            || type.contains("Field"))
            places += item->mapToScene(item->boundingRect().center()).toPoint();
    }
    QTest::mouseClick(window(), Qt::LeftButton, {}, places.at(chance->bounded(places.size())));
}

/// On the host's pages and on the client behind them.
void HostPagesTest::somebodyTouchesEverything()
{
    QFETCH(quint32, seed);
    allow("TypeError: Cannot read property 'currTimeChanged' of null"); // a route to a player without a song
    bool isNumber = false;
    const int wanted = qEnvironmentVariableIntValue("HALVORA_SESSION_STEPS", &isNumber);
    QRandomGenerator chance(seed);
    showFirstDevice();
    int frames = 0;
    const auto counting = connect(window(), &QQuickWindow::frameSwapped, this, [&] { ++frames; });
    const Qt::Key keys[] = {Qt::Key_Escape, Qt::Key_Tab,  Qt::Key_Return,
                            Qt::Key_Space,  Qt::Key_Down, Qt::Key_Left};
    for (int step = 0; step < (isNumber ? wanted : 150); ++step) {
        const int what = chance.bounded(20);
        if (what < 14)
            touchSomething(&chance);
        else if (what < 17)
            press({keys[chance.bounded(int(std::size(keys)))]});
        else if (what < 18)
            window()->resize(340 + chance.bounded(600), 520 + chance.bounded(400));
        else if (what < 19)
            m_devices[0].dropAll();
        else
            m_host->controller.showDemo();
        const int seen = frames;
        (void)QTest::qWaitFor([&] { return frames > seen; }, 20);
    }
    disconnect(counting);
    QVERIFY(m_host->preferences.speak(u("en")));
    for (int i = 0; i < 5; ++i)
        press({Qt::Key_Escape});
    const int before = m_demo.device()->acceptedConnections();
    m_host->controller.showDemo();
    QTRY_VERIFY_WITH_TIMEOUT(m_demo.device()->acceptedConnections() > before, patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_demo.device()->joinedConnections(), 1, patience);
    QTRY_VERIFY_WITH_TIMEOUT(showsClient(), patience);
}

HALVORA_SUITE_MAIN(HostPagesTest)

#include "tst_hostpages.moc"
