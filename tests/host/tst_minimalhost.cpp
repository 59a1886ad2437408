// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "PluginGate.h"
#include "SceneSearch.h"

#include "simulator/DeviceSimulator.h"
#include "support/Suite.h"

#include <QProcess>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickWindow>

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
    void showsTheOutputs();
    // What goes wrong.
    void endsWithoutTheLibrary();

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
    QProcess example;
    example.start(u(HALVORA_EXAMPLE),
                  {u(HALVORA_LIB), m_device->host(), QString::number(m_device->port()), u("anna")});
    QTRY_COMPARE_WITH_TIMEOUT(m_device->joinedConnections(), 1, patience);
    example.kill();
    QVERIFY(example.waitForFinished());
    QCOMPARE(example.readAllStandardError(), QByteArray());
}

void MinimalHostTest::showsTheOutputs()
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
    const auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    QVERIFY(window);
    const QVector<OutputState> outputs = m_device->state().outputs;
    QVERIFY(!outputs.isEmpty());
    for (const OutputState &output : outputs)
        QTRY_VERIFY_WITH_TIMEOUT(SceneSearch::withText(window->contentItem(), "text", output.name), patience);
}

void MinimalHostTest::endsWithoutTheLibrary()
{
    QProcess example;
    example.start(u(HALVORA_EXAMPLE), {u("/none/such.so"), u("127.0.0.1"), u("5000"), u("anna")});
    QVERIFY(example.waitForFinished(patience));
    QCOMPARE(example.exitStatus(), QProcess::NormalExit);
    QCOMPARE(example.exitCode(), 1);
    QVERIFY(example.readAllStandardError().contains("not found"));
}

HALVORA_SUITE_MAIN(MinimalHostTest)

#include "tst_minimalhost.moc"
