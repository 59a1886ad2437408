// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Suite.h"

#include "link/FrameCodec.h"

#include <QCryptographicHash>
#include <QImage>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryFile>
#include <QWebSocket>

#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

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
    void tracesThePictures_data();
    void tracesThePictures();
    void obeysWhileItRuns();
    void obeysItsLastLine();
    void obeysOnceInTheForeground();
    void startsAsTheFileSays();
    void letsTheNamedUserIn_data();
    void letsTheNamedUserIn();
    void sizes();
    void ends_data();
    void ends();

    // What goes wrong
    void wrongLinesChangeNothing_data();
    void wrongLinesChangeNothing();
    void passesOverALongLine();
    void tellsThatItsPortIsTaken();
    void wrongOptions_data();
    void wrongOptions();
    void namesTheWrongLineOfItsState();
};

namespace {

constexpr auto multiline = QRegularExpression::MultilineOption;

// A file with these bytes, for as long as the object lives.
class Written final
{
public:
    explicit Written(const QByteArray &bytes)
    {
        if (!m_file.open() || m_file.write(bytes) != bytes.size() || !m_file.flush())
            qWarning("The file cannot be written");
    }
    QString fileName() const { return m_file.fileName(); }

private:
    QTemporaryFile m_file;
};

// The terminal's end at which a person sits.
class Terminal final
{
public:
    Terminal() : m_end(::posix_openpt(O_RDWR | O_NOCTTY))
    {
        if (::grantpt(m_end) == 0 && ::unlockpt(m_end) == 0)
            m_device = ::ptsname(m_end);
    }
    ~Terminal() { ::close(m_end); }
    Q_DISABLE_COPY(Terminal)

    QByteArray device() const { return m_device; }
    bool type(const QByteArray &keys)
    {
        return ::write(m_end, keys.constData(), size_t(keys.size())) == keys.size();
    }

private:
    int m_end;
    QByteArray m_device;
};

// A process that may have a terminal of its own, in which it is the session's leader.
class Process final : public QProcess
{
public:
    QByteArray terminal; ///< its device; empty: none

protected:
    void setupChildProcess() override
    {
        if (terminal.isEmpty())
            return;
        ::setsid();
        ::open(terminal.constData(), O_RDWR); // the first that a leader opens is the session's
    }
};

class Tool final
{
public:
    explicit Tool(const QStringList &options = {}, const QByteArray &password = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("HALVORA_PASSWORD"_s);
        if (!password.isEmpty())
            environment.insert("HALVORA_PASSWORD"_s, QString::fromUtf8(password));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(HALVORA_SIMULATOR), options);
    }

    // As a job in the background of the terminal; the shell has its commands from elsewhere.
    explicit Tool(const Terminal &terminal)
    {
        process.terminal = terminal.device();
        process.start("bash"_s, {"--norc"_s, "-i"_s});
        say(HALVORA_SIMULATOR " --trace </dev/tty & echo job $!");
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
            out += QString::fromUtf8(process.readAllStandardOutput());
            return out.contains(QRegularExpression(pattern, multiline));
        });
    }

    // The port on the line that begins with `name`.
    int port(const QString &name)
    {
        if (!prints("^"_s + name + " 127.0.0.1:\\d+$"_s))
            return 0;
        const QRegularExpression line("^"_s + name + " 127.0.0.1:(\\d+)$"_s, multiline);
        return line.match(out).captured(1).toInt();
    }

    void say(const QByteArray &line) { process.write(line + '\n'); }

    // A client of the device that says who it is.
    bool logIn(const QString &login = "default"_s)
    {
        link.abort();
        link.connectToHost("127.0.0.1"_s, quint16(port("device"_s)));
        if (!link.waitForConnected())
            return false;
        link.write(FrameCodec::encryptText("0|CONNECT|me|"_s + login + "|token"_s) + "&");
        return link.waitForBytesWritten();
    }

    Process process;
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

void SimulatorToolTest::tracesThePictures_data()
{
    QTest::addColumn<QString>("server");
    QTest::newRow("of the music") << "music 2"_s;
    QTest::newRow("of AirPlay") << "artwork"_s;
}

void SimulatorToolTest::tracesThePictures()
{
    QFETCH(QString, server);
    Tool tool({"--trace"_s});
    QNetworkAccessManager network;
    const QUrl cover("http://127.0.0.1:%1/covers/7-64.png"_s.arg(tool.port(server)));
    const std::unique_ptr<QNetworkReply> reply(network.get(QNetworkRequest(cover)));
    QTRY_VERIFY(reply->isFinished());
    const QByteArray picture = reply->readAll();
    QVERIFY(!QImage::fromData(picture).isNull());
    QVERIFY(tool.prints("^%1 < GET /covers/7-64.png$"_s.arg(server)));
    QVERIFY(tool.prints("^%1 > 200 OK, image/png, %2 bytes$"_s.arg(server).arg(picture.size())));
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

void SimulatorToolTest::obeysItsLastLine()
{
    Tool tool;
    tool.process.write("help");
    tool.process.closeWriteChannel();
    QVERIFY(tool.prints("^  link-drop "_s));
}

void SimulatorToolTest::obeysOnceInTheForeground()
{
    Terminal terminal;
    Tool tool(terminal);
    QVERIFY(tool.port("device"_s) > 0);
    QVERIFY(terminal.type("help\n"));
    // Twice, as its first answer may be older than what happened to the terminal.
    for (int time = 0; time < 2; ++time) {
        QVERIFY(tool.logIn());
        QVERIFY(tool.prints("^device > \\d+\\|JOIN$"_s));
        QVERIFY(!tool.out.contains("link-drop"_s));
        tool.out.remove("JOIN"_s);
    }
    tool.say("fg; echo ended with $?");
    QVERIFY(tool.prints("^  link-drop "_s));
    QVERIFY(terminal.type("quit\n"));
    QVERIFY(tool.prints("^ended with 0$"_s));
}

void SimulatorToolTest::startsAsTheFileSays()
{
    const Written state(
        "# a quiet evening\n\nvolume 1 55\nmute 2 on\nroute 3 -1\nroute 5 7\nsource-volume 3 12");
    Tool tool({"--trace"_s, "--state"_s, state.fileName()});
    QVERIFY(tool.logIn());
    tool.link.write(FrameCodec::encryptText("1|UI_COMMAND|17|100"_s) + "&");
    QVERIFY(tool.prints("^device > 1\\|BROAD\\|500\\|"_s));
    for (const char *part : {"|3|100|1|55|0|", "|3|100|2|28|1|", "|4|100|3|12\n", "|3|5@7|8|9"})
        QVERIFY2(tool.out.contains(QLatin1String(part)), part);
}

void SimulatorToolTest::letsTheNamedUserIn_data()
{
    QTest::addColumn<bool>("byFile");
    QTest::newRow("password in a file") << true;
    QTest::newRow("password in the environment") << false;
}

void SimulatorToolTest::letsTheNamedUserIn()
{
    QFETCH(bool, byFile);
    const Written secret("s3cret \r\nanother line\n");
    const QStringList options{"--trace"_s, "--user"_s, "anna"_s};
    Tool tool(byFile ? options + QStringList{"--password-file"_s, secret.fileName()} : options,
              byFile ? "not this one" : "s3cret ");
    const QByteArray digest = QCryptographicHash::hash("s3cret ", QCryptographicHash::Md5).toHex();
    const QString login = "%1|"_s + QLatin1String(digest) + "|HalvoraEnvClient"_s;
    for (const QString &other : {"default"_s, login.arg("bert"_s), "anna|d1ge57|HalvoraEnvClient"_s}) {
        QVERIFY(tool.logIn(other));
        QVERIFY(tool.prints("^device > 1\\|REFUSE$"_s));
        QVERIFY(!tool.out.contains("JOIN"_s));
        tool.out.remove("REFUSE"_s);
    }
    QVERIFY(tool.logIn(login.arg("anna"_s)));
    QVERIFY(tool.prints("^device > 1\\|JOIN$"_s));
    QVERIFY(!tool.out.contains("s3cret"_s) && !tool.out.contains(QLatin1String(digest)));
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
    QTest::newRow("no such output") << QByteArray("volume 77 10") << "There is no output 77."_s;
    QTest::newRow("too loud") << QByteArray("volume 1 101") << "\"volume\" wants OUTPUT 0-100."_s;
    QTest::newRow("nothing to route") << QByteArray("route 1 99") << "There is no source 99."_s;
    QTest::newRow("nowhere to route to") << QByteArray("route 77 3") << "There is no output 77."_s;
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

void SimulatorToolTest::passesOverALongLine()
{
    Tool tool;
    tool.say(QByteArray(200 * 1024, 'x'));
    tool.say("help");
    QVERIFY(tool.prints("^A line of more than 65536 bytes was passed over.$"_s));
    QVERIFY(tool.prints("^  link-drop "_s));
    QCOMPARE(tool.out.count("passed over"_s), 1);
    QVERIFY(!tool.out.contains("no command"_s));
}

void SimulatorToolTest::tellsThatItsPortIsTaken()
{
    Tool tool({"--trace"_s});
    const int port = tool.port("device"_s);
    tool.say("link-refuse\nhelp"); // which is carried out once the list is here
    QVERIFY(tool.prints("^  link-drop "_s));
    QTcpServer other;
    QVERIFY(other.listen(QHostAddress::LocalHost, quint16(port)));
    tool.say("link-accept");
    QVERIFY(tool.prints("^The device cannot listen on port %1 again: .+\\.$"_s.arg(port)));
    other.close();
    tool.say("link-accept\nquit-not");
    QVERIFY(tool.prints("^\"quit-not\" is no command"_s));
    QVERIFY(tool.logIn());
    QVERIFY(tool.prints("JOIN"_s));
}

void SimulatorToolTest::wrongOptions_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("complaint");
    const QString noNumber = "\"%1\" is no number from 1 to %2: give one after --%3."_s;
    QTest::newRow("outputs") << QStringList{"--outputs"_s, "65"_s}
                             << noNumber.arg("65"_s, "64"_s, "outputs"_s);
    QTest::newRow("tracks") << QStringList{"--tracks"_s, "many"_s}
                            << noNumber.arg("many"_s, "1000000"_s, "tracks"_s);
    QTest::newRow("user name") << QStringList{"--user"_s, "a|b"_s}
                               << "\"a|b\" is no user name: give one without \"|\" after --user."_s;
    QTest::newRow("no password") << QStringList{
        "--user"_s,
        "anna"_s} << "--user needs a password: give --password-file FILE or set HALVORA_PASSWORD."_s;
    QTest::newRow("empty password file")
        << QStringList{"--user"_s, "anna"_s, "--password-file"_s, "/dev/null"_s}
        << "--user needs a password: give --password-file FILE or set HALVORA_PASSWORD."_s;
    QTest::newRow("password without user") << QStringList{"--password-file"_s, "/dev/null"_s}
                                           << "--password-file can only be used with --user."_s;
    QTest::newRow("no such password file")
        << QStringList{"--user"_s, "anna"_s, "--password-file"_s, "/none"_s}
        << "The password file \"/none\" cannot be read: No such file or directory."_s;
    QTest::newRow("no such state") << QStringList{"--state"_s, "/none"_s}
                                   << "The file \"/none\" cannot be read: No such file or directory."_s;
}

void SimulatorToolTest::wrongOptions()
{
    QFETCH(QStringList, options);
    QFETCH(QString, complaint);
    Tool tool(options);
    QVERIFY(tool.process.waitForFinished());
    QCOMPARE(tool.process.exitCode(), 2);
    QCOMPARE(QString::fromUtf8(tool.process.readAllStandardError()),
             "halvora-simulator: "_s + complaint + "\n"_s);
}

void SimulatorToolTest::namesTheWrongLineOfItsState()
{
    const Written state("volume 1 5\nvolume 1\n");
    Tool tool({"--state"_s, state.fileName()});
    QVERIFY(tool.process.waitForFinished());
    QCOMPARE(tool.process.exitCode(), 2);
    QCOMPARE(QString::fromUtf8(tool.process.readAllStandardError()),
             "halvora-simulator: %1:2: \"volume\" wants OUTPUT 0-100.\n"_s.arg(state.fileName()));
}

HALVORA_SUITE_MAIN(SimulatorToolTest)
#include "tst_simulatortool.moc"
