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

QString u(const char *text)
{
    return QString::fromUtf8(text);
}

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
    void endsWithOneSentence_data();
    void endsWithOneSentence();

private:
    std::unique_ptr<DeviceSimulator> m_device;
};

void MinimalHostTest::init()
{
    m_device = std::make_unique<DeviceSimulator>();
    DeviceState state = m_device->state();
    for (SourceState &source : state.sources)
        source.hasPlayer = false; // nobody plays here
    m_device->setState(state);
    m_device->setCredentials(u("anna"), u("secret"));
    QVERIFY(m_device->listen());
}

void MinimalHostTest::logsIn()
{
    qputenv("HALVORA_PASSWORD", "secret");
    QStringList names; // of the installation, as the device hears it
    for (int run = 0; run < 2; ++run) {
        QProcess example;
        example.start(u(HALVORA_EXAMPLE),
                      {u(HALVORA_LIB), m_device->host(), QString::number(m_device->port()), u("anna")});
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
    engine.rootContext()->setContextProperty(u("smallScreen"), false);
    engine.rootContext()->setContextProperty(
        u("access"),
        QStringList{m_device->host(), QString::number(m_device->port()), u("anna"), u("secret")});
    engine.load(QUrl(u("qrc:/Main.qml")));
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    QVERIFY(window);
    const QVector<OutputState> outputs = m_device->state().outputs;
    QVERIFY(!outputs.isEmpty());
    for (const OutputState &output : outputs)
        QTRY_VERIFY_WITH_TIMEOUT(SceneSearch::withText(window->contentItem(), "text", output.name), patience);

    const auto tap = [window](const QQuickItem *item) {
        QTest::mouseClick(window, Qt::LeftButton, {},
                          item->mapToScene(item->boundingRect().center()).toPoint());
    };
    const auto tab = [window](const char *name) {
        return SceneSearch::withText(window->contentItem(), "text", u(name));
    };
    tap(tab("Player")); // there is none yet
    QVERIFY(SceneSearch::ofType(window->contentItem(), "OutputsView"));
    tap(SceneSearch::ofType(window->contentItem(), "CoverImgS"));
    QVERIFY(SceneSearch::ofType(window->contentItem(), "PlayerView"));
    tap(tab("Outputs"));
    QVERIFY(SceneSearch::ofType(window->contentItem(), "OutputsView"));
    tap(tab("Player"));
    QVERIFY(SceneSearch::ofType(window->contentItem(), "PlayerView"));
}

void MinimalHostTest::endsWithOneSentence_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("sentence");
    const QString usage = u("usage: HALVORA_PASSWORD=... minimal-host LIBRARY HOST PORT USER");
    QTest::newRow("nothing") << QStringList() << 2 << usage;
    QTest::newRow("no user") << QStringList{u(HALVORA_LIB), u("127.0.0.1"), u("5000")} << 2 << usage;
    QTest::newRow("no library") << QStringList{u("/none/such.so"), u("127.0.0.1"), u("5000"), u("anna")} << 1
                                << u("not found");
    QTest::newRow("another library") << QStringList{
        QLibraryInfo::location(QLibraryInfo::PluginsPath) + u("/platforms/libqoffscreen.so"), u("127.0.0.1"),
        u("5000"), u("anna")} << 1 << u("no client library: ");
}

void MinimalHostTest::endsWithOneSentence()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QString, sentence);
    QProcess example;
    example.start(u(HALVORA_EXAMPLE), arguments);
    QVERIFY(example.waitForFinished(patience));
    QCOMPARE(example.exitStatus(), QProcess::NormalExit);
    QCOMPARE(example.exitCode(), status);
    const QString said = QString::fromUtf8(example.readAllStandardError());
    QVERIFY2(said.contains(sentence) && said.count(QLatin1Char('\n')) == 1, qPrintable(said));
}

HALVORA_SUITE_MAIN(MinimalHostTest)

#include "tst_minimalhost.moc"
