// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "PluginGate.h"
#include "SceneSearch.h"

#include "simulator/DeviceSimulator.h"
#include "support/Suite.h"

#include <QLibraryInfo>
#include <QProcess>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickWindow>
#include <QUuid>

namespace {

constexpr int patience = 20000; // milliseconds

} // namespace

/// The example of a host: its program from outside, and its scene.
class MinimalHostTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    // What works.
    void logsIn();
    void showsTheOutputsAndThePlayer();
    // What goes wrong.
    void endsWithOneSentence();

private:
    std::unique_ptr<DeviceSimulator> m_device;
    QStringList m_access;
};

void MinimalHostTest::init()
{
    m_device = std::make_unique<DeviceSimulator>();
    DeviceState state = m_device->state();
    for (SourceState &source : state.sources)
        source.hasPlayer = false; // nobody plays here
    m_device->setState(state);
    m_device->setCredentials("anna"_s, "secret"_s);
    QVERIFY(m_device->listen());
    m_access = QStringList{m_device->host(), QString::number(m_device->port()), "anna"_s, "secret"_s};
}

void MinimalHostTest::logsIn()
{
    qputenv("HALVORA_PASSWORD", "secret");
    QStringList names; // of the installation, as the device hears it
    for (int run = 0; run < 2; ++run) {
        QProcess example;
        example.start(QStringLiteral(HALVORA_EXAMPLE),
                      QStringList(QStringLiteral(HALVORA_LIB)) + m_access.mid(0, 3));
        QTRY_COMPARE_WITH_TIMEOUT(m_device->joinedConnections(), 1, patience);
        names += m_device->messages().first().section(QLatin1Char('|'), 1, 1);
        example.kill();
        QVERIFY(example.waitForFinished());
        QCOMPARE(example.readAllStandardError(), QByteArray());
        QTRY_COMPARE(m_device->liveConnections(), 0);
        m_device->clearReceived();
    }
    QVERIFY2(!QUuid(names.at(0)).isNull(), qPrintable(names.at(0)));
    QCOMPARE(names.at(1), names.at(0));
}

void MinimalHostTest::showsTheOutputsAndThePlayer()
{
    qputenv("HALVORA_PLUGIN_DIR", HALVORA_LIB_DIR);
    PluginGate gate;
    QVERIFY2(gate.load(), qPrintable(gate.error()));
    QQmlApplicationEngine engine;
    gate.initialize(&engine);
    engine.rootContext()->setContextProperty("smallScreen"_s, false);
    engine.rootContext()->setContextProperty("access"_s, m_access);
    engine.load(QUrl("qrc:/Main.qml"_s));
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    QVERIFY(window);
    const auto text = [window](const QString &text) {
        return SceneSearch::withText(window->contentItem(), "text", text);
    };
    const auto screen = [window](const char *type) {
        return SceneSearch::ofType(window->contentItem(), type);
    };
    for (const OutputState &output : m_device->state().outputs)
        QTRY_VERIFY_WITH_TIMEOUT(text(output.name), patience);
    const auto tap = [window](const QQuickItem *item) {
        QTest::mouseClick(window, Qt::LeftButton, {},
                          item->mapToScene(item->boundingRect().center()).toPoint());
    };
    tap(text("Player"_s)); // there is none yet
    QVERIFY(screen("OutputsView"));
    tap(screen("CoverImgS"));
    QVERIFY(screen("PlayerView"));
    tap(text("Outputs"_s));
    QVERIFY(screen("OutputsView"));
    tap(text("Player"_s));
    QVERIFY(screen("PlayerView"));
}

void MinimalHostTest::endsWithOneSentence()
{
    const QString another = QLibraryInfo::location(QLibraryInfo::PluginsPath)
        + "/platforms/libqoffscreen.so"_s;
    const QPair<QStringList, QString> cases[] = {
        {{another, "box"_s, "5000"_s},
         "2 usage: HALVORA_PASSWORD=... minimal-host LIBRARY HOST PORT USER\n"_s},
        {{another, "box"_s, "5000"_s, "anna"_s}, "1 no client library: Unknown error\n"_s},
    };
    for (const auto &[arguments, end] : cases) {
        QProcess example;
        example.start(QStringLiteral(HALVORA_EXAMPLE), arguments);
        QVERIFY(example.waitForFinished(patience));
        QCOMPARE(example.exitStatus(), QProcess::NormalExit);
        const QString said = QString::fromUtf8(example.readAllStandardError());
        QCOMPARE(QString::number(example.exitCode()) + QLatin1Char(' ') + said, end);
    }
}

HALVORA_SUITE_MAIN(MinimalHostTest)

#include "tst_minimalhost.moc"
