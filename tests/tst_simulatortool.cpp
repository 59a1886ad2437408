// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Suite.h"

#include "link/FrameCodec.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTcpSocket>
#include <QWebSocket>

#include <csignal>

/**
 * The simulator as a developer starts it: its options, what it prints of the wire, and the lines that it obeys.
 */
class SimulatorToolTest final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    // What works
    void tracesTheLink();
    void tracesTheMusicServers();
    void obeysWhileItRuns();
    void sizes();
    void ends_data();
    void ends();

    // What goes wrong
    void wrongLinesChangeNothing_data();
    void wrongLinesChangeNothing();
    void wrongOptions_data();
    void wrongOptions();
};

namespace {

class Tool final
{
public:
    explicit Tool(const QStringList &options = {})
    {
        process.start(QStringLiteral(HALVORA_SIMULATOR), options);
    }
    ~Tool()
    {
        process.kill();
        process.waitForFinished();
    }

    bool prints(const QString &pattern)
    {
        return QTest::qWaitFor([&] {
            out += QString::fromUtf8(process.readAllStandardOutput());
            return out.contains(QRegularExpression(pattern, QRegularExpression::MultilineOption));
        });
    }

    // The port on the line that begins with `name`.
    int port(const QString &name)
    {
        if (!prints("^"_s + name + " 127.0.0.1:\\d+$"_s))
            return 0;
        const QRegularExpression line("^"_s + name + " 127.0.0.1:(\\d+)$"_s,
                                      QRegularExpression::MultilineOption);
        return line.match(out).captured(1).toInt();
    }

    void say(const QByteArray &line) { process.write(line + '\n'); }

    // A client of the device that has said who it is.
    bool logIn()
    {
        link.connectToHost("127.0.0.1"_s, quint16(port("device"_s)));
        if (!link.waitForConnected())
            return false;
        link.write(FrameCodec::encryptText("0|CONNECT|me|default|token"_s) + "&");
        return link.waitForBytesWritten();
    }

    QProcess process;
    QTcpSocket link;
    QString out;
};

} // namespace

void SimulatorToolTest::tracesTheLink()
{
    Tool tool({"--trace"_s});
    QVERIFY(tool.logIn());
    QVERIFY(tool.prints("^device < CONNECT\\|me\\|default\\|token$"_s));
    QVERIFY(tool.prints("^device > \\d+\\|JOIN$"_s));
    tool.link.write(FrameCodec::encryptText("1|CONNECT|me|anna|d1ge57|HalvoraEnvClient|token"_s) + "&");
    QVERIFY(tool.prints("^device < CONNECT\\|me\\|anna\\|\\(digest\\)\\|HalvoraEnvClient\\|token$"_s));
}

void SimulatorToolTest::tracesTheMusicServers()
{
    Tool tool({"--trace"_s});
    QWebSocket socket;
    socket.open(QUrl("ws://127.0.0.1:%1/mopidy/ws"_s.arg(tool.port("music 2"_s))));
    QTRY_VERIFY(socket.isValid());
    socket.sendTextMessage("{\"jsonrpc\":\"2.0\",\"id\":\"0\",\"method\":\"core.playback.get_state\"}"_s);
    QVERIFY(tool.prints("^music 2 < .*core.playback.get_state"_s));
    QVERIFY(tool.prints("^music 2 > .*\"result\":\"playing\""_s));
}

void SimulatorToolTest::obeysWhileItRuns()
{
    Tool tool({"--trace"_s});
    QVERIFY(tool.logIn());
    QVERIFY(tool.prints("JOIN"_s));
    tool.say("volume 1 55");
    QVERIFY(tool.prints("^device > \\d+\\|BROAD\\|.*\\|1\\|55\\|"_s));
    tool.say("link-drop");
    QTRY_COMPARE(tool.link.state(), QAbstractSocket::UnconnectedState);
    tool.say("refuse-login on");
    tool.say("help");
    QVERIFY(tool.prints("^  refuse-login on"_s));
    QVERIFY(tool.logIn());
    QVERIFY(tool.prints("^device > \\d+\\|REFUSE$"_s));
}

void SimulatorToolTest::sizes()
{
    Tool tool({"--trace"_s, "--outputs"_s, "64"_s, "--tracks"_s, "30"_s});
    QVERIFY(tool.logIn());
    tool.link.write(FrameCodec::encryptText("1|UI_COMMAND|17|100"_s) + "&");
    QVERIFY(tool.prints("Zone 67"_s)); // behind the six of the demonstration, up to number 9
    QWebSocket socket;
    socket.open(QUrl("ws://127.0.0.1:%1/mopidy/ws"_s.arg(tool.port("music 2"_s))));
    QTRY_VERIFY(socket.isValid());
    socket.sendTextMessage("{\"jsonrpc\":\"2.0\",\"id\":\"0\",\"method\":\"core.library.browse\","
                           "\"params\":{\"uri\":\"local:directory?type=track\"}}"_s);
    QVERIFY(tool.prints("^music 2 > .*\"result\""_s));
    const QString answer = tool.out.mid(tool.out.indexOf("music 2 >"_s)).section("\n"_s, 0, 0);
    QCOMPARE(answer.count("local:track:"_s), 30);
}

void SimulatorToolTest::ends_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("quit") << QByteArray("quit");
    QTest::newRow("signal, with its input closed long before") << QByteArray();
}

void SimulatorToolTest::ends()
{
    QFETCH(QByteArray, line);
    Tool tool;
    QVERIFY(tool.port("artwork"_s) > 0);
    if (line.isEmpty()) {
        tool.process.closeWriteChannel();
        QVERIFY(!tool.process.waitForFinished(300));
        ::kill(pid_t(tool.process.processId()), SIGTERM);
    } else {
        tool.say(line);
    }
    QVERIFY(tool.process.waitForFinished());
    QCOMPARE(tool.process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(tool.process.exitCode(), 0);
}

void SimulatorToolTest::wrongLinesChangeNothing_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("answer");
    QTest::newRow("no command") << QByteArray("make it rain")
                                << "\"make\" is no command; \"help\" lists them."_s;
    QTest::newRow("no flag") << QByteArray("refuse-login maybe") << "\"refuse-login\" wants on|off."_s;
    QTest::newRow("no number") << QByteArray("music-delay -3") << "\"music-delay\" wants MS|off."_s;
    QTest::newRow("no such output") << QByteArray("volume 77 10") << "\"volume\" wants OUTPUT 0-100."_s;
    QTest::newRow("a value too many") << QByteArray("link-drop now") << "\"link-drop\" takes no value."_s;
}

void SimulatorToolTest::wrongLinesChangeNothing()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, answer);
    Tool tool({"--trace"_s});
    tool.say(line);
    QVERIFY(tool.prints("^"_s + QRegularExpression::escape(answer) + "$"_s));
    QVERIFY(tool.logIn());
    QVERIFY(tool.prints("JOIN"_s));
}

void SimulatorToolTest::wrongOptions_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("outputs") << QStringList{"--outputs"_s, "65"_s};
    QTest::newRow("tracks") << QStringList{"--tracks"_s, "many"_s};
}

void SimulatorToolTest::wrongOptions()
{
    QFETCH(QStringList, options);
    Tool tool(options);
    QVERIFY(tool.process.waitForFinished());
    QCOMPARE(tool.process.exitCode(), 2);
    const QString complaint = QString::fromUtf8(tool.process.readAllStandardError());
    QVERIFY2(complaint.startsWith("halvora-simulator: \"%1\" is no number"_s.arg(options.at(1))),
             qPrintable(complaint));
    QCOMPARE(complaint.count("\n"_s), 1);
}

HALVORA_SUITE_MAIN(SimulatorToolTest)
#include "tst_simulatortool.moc"
