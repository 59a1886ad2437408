// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Rows.h"
#include "support/Suite.h"

#include "link/FrameCodec.h"

#include <QCryptographicHash>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpSocket>
#include <QTemporaryFile>
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
    void tracesTheWire();
    void obeysWhileItRuns();
    void obeysOnceInTheForeground();
    void startsAsTheFileSays();
    void letsTheNamedUserIn();
    void ends();

    // What goes wrong
    void wrongLinesChangeNothing();
    void wrongOptions_data();
    void wrongOptions();
};

namespace {

constexpr auto multiline = QRegularExpression::MultilineOption;

// A file with these bytes, for as long as the object lives.
struct Written final
{
    explicit Written(const QByteArray &bytes)
    {
        if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
            qWarning("The file cannot be written");
    }
    QTemporaryFile file;
};

class Tool final
{
public:
    explicit Tool(const QStringList &options = {}, const QByteArray &password = {},
                  const QString &program = QStringLiteral(HALVORA_SIMULATOR))
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("HALVORA_PASSWORD"_s);
        if (!password.isEmpty())
            environment.insert("HALVORA_PASSWORD"_s, QString::fromUtf8(password));
        process.setProcessEnvironment(environment);
        process.start(program, options);
    }

    ~Tool()
    {
        const QRegularExpressionMatch job = QRegularExpression("^job (\\d+)$"_s, multiline).match(out);
        if (job.hasMatch())
            ::kill(job.captured(1).toInt(), SIGKILL);
        process.kill();
        process.waitForFinished();
    }

    bool prints(const QString &pattern)
    {
        return QTest::qWaitFor([&] {
            out += QString::fromUtf8(process.readAllStandardOutput()).remove(QLatin1Char('\r'));
            return out.contains(QRegularExpression(pattern, multiline));
        });
    }

    // The port on the line that begins with `name`.
    int port(const QString &name)
    {
        const QString pattern = "^"_s + name + " 127.0.0.1:(\\d+)$"_s;
        prints(pattern);
        return QRegularExpression(pattern, multiline).match(out).captured(1).toInt();
    }

    void say(const QByteArray &line) { process.write(line + '\n'); }

    // A client of the device that says who it is; whether it is answered so.
    bool logsIn(const QString &login = "default"_s, const QString &answer = "JOIN"_s)
    {
        link.abort();
        link.connectToHost("127.0.0.1"_s, quint16(port("device"_s)));
        out.remove("> 1|"_s + answer);
        link.write(FrameCodec::encryptText("0|CONNECT|me|"_s + login + "|token"_s) + "&");
        return prints("^device > 1\\|"_s + answer + "$"_s);
    }

    int status()
    {
        const bool ended = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit;
        return ended ? process.exitCode() : -1;
    }

    QProcess process;
    QTcpSocket link;
    QString out;
};

} // namespace

void SimulatorToolTest::tracesTheWire()
{
    Tool tool({"--trace"_s, "--outputs"_s, "64"_s, "--tracks"_s, "30"_s});
    QVERIFY(tool.logsIn());
    QVERIFY(tool.prints("^device < CONNECT\\|me\\|default\\|token$"_s));
    tool.link.write(FrameCodec::encryptText("1|CONNECT|me|anna|d1ge57|HalvoraEnvClient|token"_s) + "&");
    QVERIFY(tool.prints("^device < CONNECT\\|me\\|anna\\|\\(digest\\)\\|HalvoraEnvClient\\|token$"_s));
    tool.link.write(FrameCodec::encryptText("1|UI_COMMAND|17|100"_s) + "&");
    QVERIFY(tool.prints("Zone 67"_s)); // behind the six of the demonstration, up to number 9

    QWebSocket socket;
    socket.open(QUrl("ws://127.0.0.1:%1/mopidy/ws"_s.arg(tool.port("music 2"_s))));
    QTRY_VERIFY(socket.isValid());
    socket.sendTextMessage("{\"jsonrpc\":\"2.0\",\"id\":\"0\",\"method\":\"core.library.browse\","
                           "\"params\":{\"uri\":\"local:directory?type=track\"}}"_s);
    QVERIFY(tool.prints("^music 2 < .*core.library.browse"_s));
    QVERIFY(tool.prints("^music 2 > .*\"result\""_s));
    QCOMPARE(tool.out.section("music 2 >"_s, 1).section("\n"_s, 0, 0).count("local:track:"_s), 30);

    QNetworkAccessManager network;
    for (const QString &server : {"music 2"_s, "artwork"_s}) {
        const QUrl cover("http://127.0.0.1:%1/covers/7-64.png"_s.arg(tool.port(server)));
        const std::unique_ptr<QNetworkReply> reply(network.get(QNetworkRequest(cover)));
        QTRY_VERIFY(reply->isFinished());
        QVERIFY(tool.prints("^%1 < GET /covers/7-64.png$"_s.arg(server)));
        QVERIFY(tool.prints("^%1 > 200 OK, image/png, %2 bytes$"_s.arg(server).arg(reply->readAll().size())));
    }
}

void SimulatorToolTest::obeysWhileItRuns()
{
    Tool tool({"--trace"_s});
    QVERIFY(tool.logsIn());
    tool.say("volume 1 55");
    QVERIFY(tool.prints("^device > \\d+\\|BROAD\\|.*\\|1\\|55\\|"_s));
    tool.say("link-drop");
    QTRY_COMPARE(tool.link.state(), QAbstractSocket::UnconnectedState);
    tool.say("refuse-login on");
    tool.process.write("help"); // a last line needs no end
    tool.process.closeWriteChannel();
    QVERIFY(tool.prints("^  refuse-login on"_s));
    QVERIFY(tool.logsIn("default"_s, "REFUSE"_s));
}

// As a job in the background of a shell's terminal, whose keys do not stop it.
void SimulatorToolTest::obeysOnceInTheForeground()
{
    Tool shell({"--quiet"_s, "--return"_s, "--command"_s, "sh -i"_s, "/dev/null"_s}, {}, "script"_s);
    shell.say("PS1=\n" HALVORA_SIMULATOR " --trace & echo job $!");
    QVERIFY(shell.port("device"_s) > 0);
    // Twice, as its first answer may be older than what happened to the terminal.
    for (int time = 0; time < 2; ++time) {
        shell.say("echo key");
        QVERIFY(shell.prints("^key$"_s));
        QVERIFY(shell.logsIn());
        shell.out.remove("key\n"_s);
    }
    shell.say("fg; echo ended with $?");
    QVERIFY(shell.prints("^/.*halvora-simulator --trace *$"_s));
    shell.say("help\nquit");
    QVERIFY(shell.prints("^  link-drop "_s));
    QVERIFY(shell.prints("^ended with 0$"_s));
}

void SimulatorToolTest::startsAsTheFileSays()
{
    const Written wrong("volume 1 5\nvolume 1\n");
    Tool none({"--state"_s, wrong.file.fileName()});
    QCOMPARE(none.status(), 2);
    QCOMPARE(QString::fromUtf8(none.process.readAllStandardError()),
             "halvora-simulator: %1:2: \"volume\" wants OUTPUT 0-100.\n"_s.arg(wrong.file.fileName()));

    const Written state(
        "# a quiet evening\n\nvolume 1 55\nmute 2 on\nroute 3 -1\nroute 5 7\nsource-volume 3 12");
    Tool tool({"--trace"_s, "--state"_s, state.file.fileName()});
    QVERIFY(tool.logsIn());
    tool.link.write(FrameCodec::encryptText("1|UI_COMMAND|17|100"_s) + "&");
    QVERIFY(tool.prints("^device > 1\\|BROAD\\|500\\|"_s));
    for (const char *part : {"|3|100|1|55|0|", "|3|100|2|28|1|", "|4|100|3|12\n", "|3|5@7|8|9"})
        QVERIFY2(tool.out.contains(QLatin1String(part)), part);
}

void SimulatorToolTest::letsTheNamedUserIn()
{
    const Written secret("s3cret \r\nanother line\n");
    Tool tool({"--trace"_s, "--user"_s, "anna"_s, "--password-file"_s, secret.file.fileName()},
              "not this one");
    const QByteArray digest = QCryptographicHash::hash("s3cret ", QCryptographicHash::Md5).toHex();
    const QString login = "%1|"_s + QLatin1String(digest) + "|HalvoraEnvClient"_s;
    for (const QString &other : {"default"_s, login.arg("bert"_s), "anna|d1ge57|HalvoraEnvClient"_s})
        QVERIFY(tool.logsIn(other, "REFUSE"_s));
    QVERIFY(tool.logsIn(login.arg("anna"_s)));
    QVERIFY(!tool.out.contains("s3cret"_s) && !tool.out.contains(QLatin1String(digest)));

    Tool other({"--trace"_s, "--user"_s, "anna"_s}, "s3cret ");
    QVERIFY(other.logsIn(login.arg("anna"_s)));
}

void SimulatorToolTest::ends()
{
    Tool tool;
    QVERIFY(tool.port("artwork"_s) > 0);
    tool.process.closeWriteChannel();
    QVERIFY(!tool.process.waitForFinished(300));
    ::kill(pid_t(tool.process.processId()), SIGTERM);
    QCOMPARE(tool.status(), 0);
}

void SimulatorToolTest::wrongLinesChangeNothing()
{
    Tool tool({"--trace"_s});
    for (const char *line : {"make it rain", "refuse-login maybe", "music-delay -3", "volume 77 10",
                             "volume 1 101", "route 1 99", "route 77 3", "link-drop now"})
        tool.say(line);
    tool.say(QByteArray(200 * 1024, 'x'));
    tool.say("music-delay off");
    tool.say("unknown");
    QVERIFY(tool.prints("^\"unknown\""_s));
    QCOMPARE(tool.out.mid(tool.out.indexOf("\"make\""_s)),
             "\"make\" is no command; \"help\" lists them.\n\"refuse-login\" wants on|off.\n"
             "\"music-delay\" wants MS|off.\nThere is no output 77.\n\"volume\" wants OUTPUT 0-100.\n"
             "There is no source 99.\nThere is no output 77.\n\"link-drop\" takes no value.\n"
             "A line of more than 65536 bytes was passed over.\n"
             "\"unknown\" is no command; \"help\" lists them.\n"_s);
    QVERIFY(tool.logsIn());
}

void SimulatorToolTest::wrongOptions_data()
{
    const QString needsPassword =
        "--user needs a password: give --password-file FILE or set HALVORA_PASSWORD."_s;
    Rows::add("options complaint"_s,
              R"(
        ; --outputs 65 ; "65" is no number from 1 to 64: give one after --outputs.
        ; --tracks many ; "many" is no number from 1 to 1000000: give one after --tracks.
        ; --user a|b ; "a|b" is no user name: give one without "|" after --user.
        ; --user anna ; %1
        ; --user anna --password-file /dev/null ; %1
        ; --user anna --password-file /none ; The password file "/none" %2
        ; --password-file /dev/null ; --password-file can only be used with --user.
        ; --state /none ; The file "/none" %2)"_s.arg(needsPassword,
                                                      "cannot be read: No such file or directory."_s));
}

void SimulatorToolTest::wrongOptions()
{
    QFETCH(QString, options);
    QFETCH(QString, complaint);
    Tool tool(options.split(QLatin1Char(' ')));
    QCOMPARE(tool.status(), 2);
    QCOMPARE(QString::fromUtf8(tool.process.readAllStandardError()),
             "halvora-simulator: "_s + complaint + "\n"_s);
}

HALVORA_SUITE_MAIN(SimulatorToolTest)
#include "tst_simulatortool.moc"
