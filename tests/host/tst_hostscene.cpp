// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostController.h"
#include "HostLanguages.h"
#include "HostPreferences.h"
#include "HostScene.h"
#include "PluginGate.h"
#include "SceneSearch.h"

#include "simulator/DeviceSimulator.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest>

namespace {

constexpr int patience = 20000; // milliseconds

QStringList warnings;
QtMessageHandler printMessage = nullptr;

void keepWarnings(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtWarningMsg || type == QtCriticalMsg)
        warnings += text;
    printMessage(type, context, text);
}

/// Where the middle of a tab is, 0 or 1, in the window as it is now.
QPoint tabAt(const QQuickWindow *window, int tab)
{
    return {(window->width() - 85) / 4 * (1 + 2 * tab), window->height() - 30};
}

} // namespace

/// The host's window with the client in it, at a simulated device.
class HostSceneTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    // What works.
    void showsTheOutputsFirst();
    void enablesThePlayerTabWithItsFirstOutput();
    void switchesTabsWithClicks();
    void followsTheWindowsSize();
    void leavesAndReturnsWithTheWindow();
    void endsInTheLastOfManyChanges_data();
    void endsInTheLastOfManyChanges();
    void speaksTheLanguage_data();
    void speaksTheLanguage();

    // What goes wrong.
    void knowsNoOtherLanguage();
    void goesOnWhenTheDeviceGoes();

private:
    void showScene();
    void openPlayer();
    QQuickItem *item(const char *type) const { return SceneSearch::ofType(window()->contentItem(), type); }
    QQuickWindow *window() const { return m_scene->window(); }
    int tab() const { return item("TabBar")->property("currentIndex").toInt(); }

    PluginGate m_gate;
    std::unique_ptr<DeviceSimulator> m_device;
    HostPreferences m_preferences;
    std::unique_ptr<HostController> m_controller;
    std::unique_ptr<HostScene> m_scene;
};

void HostSceneTest::initTestCase()
{
    qputenv("HALVORA_PLUGIN_DIR", HALVORA_LIB_DIR);
    QVERIFY2(m_gate.load(), qPrintable(m_gate.error()));
    printMessage = qInstallMessageHandler(keepWarnings);
}

void HostSceneTest::init()
{
    warnings.clear();
    m_device = std::make_unique<DeviceSimulator>();
    DeviceState state = m_device->state();
    for (SourceState &source : state.sources)
        source.hasPlayer = false; // nobody plays here
    m_device->setState(state);
    QVERIFY(m_device->listen());
    showScene();
}

void HostSceneTest::showScene()
{
    m_controller = std::make_unique<HostController>(nullptr, nullptr);
    m_controller->show(QStringLiteral("house"),
                       {{m_device->host(), m_device->port()}, QStringLiteral("a"), QStringLiteral("b")});
    m_scene = std::make_unique<HostScene>(m_gate, m_controller.get(), &m_preferences);
    QVERIFY2(m_scene->show(false), qPrintable(m_scene->error()));
    QVERIFY(QTest::qWaitForWindowExposed(window()));
    QTRY_COMPARE_WITH_TIMEOUT(m_device->joinedConnections(), 1, patience);
}

void HostSceneTest::cleanup()
{
    m_scene.reset();
    m_device.reset();
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings.join(QLatin1Char('\n'))));
}

void HostSceneTest::openPlayer()
{
    QMetaObject::invokeMethod(item("MainTabController"), "openPlayerViewWithOutput", Q_ARG(int, 1));
}

void HostSceneTest::showsTheOutputsFirst()
{
    QCOMPARE(window()->size(), QSize(450, 710));
    QVERIFY(item("OutputsView"));
    QVERIFY(!item("PlayerView"));
    QCOMPARE(item("OutputsView")->mapRectToScene(item("OutputsView")->boundingRect()),
             QRectF(0, 0, 450, 640));
    QVERIFY(SceneSearch::withText(window()->contentItem(), "source", QStringLiteral("/output_sel_0.png")));
    const auto *player = SceneSearch::withText(window()->contentItem(), "source",
                                               QStringLiteral("/halvora.png"));
    QVERIFY(player);
    QCOMPARE(player->size(), QSizeF(75, 65)); // the picture's own
    const QPointF place = player->mapToScene({});
    QCOMPARE(place, QPointF(place.toPoint()));
}

void HostSceneTest::enablesThePlayerTabWithItsFirstOutput()
{
    QTest::mouseClick(window(), Qt::LeftButton, {}, tabAt(window(), 1));
    QCOMPARE(tab(), 0);
    // The device's outputs arrive after the login.
    QTRY_VERIFY_WITH_TIMEOUT((openPlayer(), item("TabBar")->property("playerEnabled").toBool()), patience);
    QCOMPARE(tab(), 1);
    QVERIFY(item("PlayerView"));
    QVERIFY(!item("OutputsView"));
    QVERIFY(SceneSearch::withText(window()->contentItem(), "source", QStringLiteral("/halvora_sel_0.png")));
}

void HostSceneTest::switchesTabsWithClicks()
{
    QTRY_VERIFY_WITH_TIMEOUT((openPlayer(), item("TabBar")->property("playerEnabled").toBool()), patience);
    for (const int wanted : {0, 1, 1, 0}) {
        QTest::mouseClick(window(), Qt::LeftButton, {}, tabAt(window(), wanted));
        QCOMPARE(tab(), wanted);
        QCOMPARE(item("OutputsView") != nullptr, wanted == 0);
        QCOMPARE(item("PlayerView") != nullptr, wanted == 1);
    }
}

void HostSceneTest::followsTheWindowsSize()
{
    window()->resize(601, 811);
    QTRY_COMPARE(item("OutputsView")->size(), QSizeF(601, 741));
    const auto *picture = SceneSearch::withText(window()->contentItem(), "source",
                                                QStringLiteral("/halvora.png"));
    const QPointF place = picture->mapToScene({});
    QCOMPARE(place, QPointF(place.toPoint())); // still on whole pixels
    QCOMPARE(item("TabBar")->mapToScene({}), QPointF(0, 741));
}

void HostSceneTest::leavesAndReturnsWithTheWindow()
{
    window()->showMinimized();
    QTRY_COMPARE_WITH_TIMEOUT(m_device->liveConnections(), 0, patience);
    window()->showNormal();
    QTRY_COMPARE_WITH_TIMEOUT(m_device->joinedConnections(), 1, patience);
    QCOMPARE(m_device->acceptedConnections(), 2);
}

void HostSceneTest::endsInTheLastOfManyChanges_data()
{
    QTest::addColumn<int>("changes");
    QTest::addColumn<int>("connections");
    QTest::newRow("restored in the end") << 20 << 1;
    QTest::newRow("minimised in the end") << 21 << 0;
}

void HostSceneTest::endsInTheLastOfManyChanges()
{
    QFETCH(int, changes);
    QFETCH(int, connections);
    auto *presence = window()->findChild<QObject *>(QStringLiteral("presence"));
    QVERIFY(presence);
    QSignalSpy foreground(presence, SIGNAL(foregroundChanged()));
    for (int change = 0; change < changes; ++change) {
        if (change % 2 == 0)
            window()->showMinimized();
        else
            window()->showNormal();
        QCoreApplication::processEvents();
    }
    QTRY_COMPARE_WITH_TIMEOUT(presence->property("settled").toBool(), true, patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_device->joinedConnections(), connections, patience);
    QCOMPARE(foreground.count(), 1 - connections);
    QCOMPARE(m_device->acceptedConnections(), 1); // the link was never ended for nothing
}

void HostSceneTest::speaksTheLanguage_data()
{
    QTest::addColumn<QString>("tracks");
    QTest::newRow("en") << QStringLiteral("Tracks");
    QTest::newRow("de") << QStringLiteral("Titel");
    QTest::newRow("it") << QStringLiteral("Tracce");
}

void HostSceneTest::speaksTheLanguage()
{
    QFETCH(QString, tracks);
    m_scene.reset();
    QVERIFY(installLanguage(QString::fromLatin1(QTest::currentDataTag())));
    showScene();
    QQmlComponent component(qmlEngine(item("TabBar")));
    component.setData("import com.kestrum.translations 1.0\nDynamicTranslator {}", QUrl());
    const std::unique_ptr<QObject> translator(component.create());
    QVERIFY2(translator, qPrintable(component.errorString()));
    QString text;
    QMetaObject::invokeMethod(translator.get(), "translate", Q_RETURN_ARG(QString, text),
                              Q_ARG(QString, QStringLiteral("track")));
    QCOMPARE(text, tracks);
}

void HostSceneTest::knowsNoOtherLanguage()
{
    QVERIFY(!installLanguage(QStringLiteral("fr")));
}

void HostSceneTest::goesOnWhenTheDeviceGoes()
{
    m_device->dropAll();
    QTRY_COMPARE_WITH_TIMEOUT(m_device->joinedConnections(), 1, patience);
    QVERIFY(m_device->acceptedConnections() >= 2);
    QCOMPARE(tab(), 0);
}

QTEST_MAIN(HostSceneTest)

#include "tst_hostscene.moc"
