// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostProcess.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

#include <csignal>

namespace {

constexpr int patience = 180000; // milliseconds: the longest tour, on a machine that is busy

} // namespace

HostProcess::HostProcess()
{
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        set(QLatin1String(variable), home());
    set(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    set(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    set(QStringLiteral("LIBGL_ALWAYS_SOFTWARE"), QStringLiteral("1"));
    set(QStringLiteral("HALVORA_PLUGIN_DIR"), QStringLiteral(HALVORA_LIB_DIR));
    for (const char *variable :
         {"DBUS_SESSION_BUS_ADDRESS", "HALVORA_PASSWORD", "QT_LOGGING_RULES", "QML2_IMPORT_PATH"})
        m_environment.remove(QLatin1String(variable));
}

HostProcess::~HostProcess()
{
    m_process.kill();
    m_process.waitForFinished();
}

QString HostProcess::writeFile(const QString &name, const QByteArray &content) const
{
    QFile file(QDir(home()).filePath(name));
    QDir().mkpath(QFileInfo(file).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qWarning() << "cannot write" << file.fileName();
    return file.fileName();
}

void HostProcess::startProgram(const QString &program, const QStringList &arguments)
{
    m_out.clear();
    m_err.clear();
    m_process.setProcessEnvironment(m_environment);
    m_process.start(program, arguments);
}

void HostProcess::startOnTerminal(const QStringList &arguments)
{
    const QString command = QStringLiteral("exec " HALVORA_HOST " ") + arguments.join(QLatin1Char(' '));
    startProgram(QStringLiteral("script"),
                 {QStringLiteral("--quiet"), QStringLiteral("--return"), QStringLiteral("--command"), command,
                  QStringLiteral("/dev/null")});
}

bool HostProcess::waitForText(const QByteArray &text)
{
    return QTest::qWaitFor([&] { return out().toUtf8().contains(text); }, patience);
}

QByteArray HostProcess::commandLine() const
{
    QFile file(QStringLiteral("/proc/%1/cmdline").arg(m_process.processId()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void HostProcess::sendSignal(int number)
{
    if (m_process.processId() > 0)
        kill(pid_t(m_process.processId()), number);
}

bool HostProcess::catches(int number) const
{
    QFile file(QStringLiteral("/proc/%1/status").arg(m_process.processId()));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("SigCgt:"))
            return (line.mid(7).trimmed().toULongLong(nullptr, 16) >> (number - 1)) & 1;
    }
    return false;
}

int HostProcess::wait()
{
    // Serves this process's events meanwhile: it may be the other end of a socket.
    const bool ended = QTest::qWaitFor([this] { return isEnded(); }, patience);
    return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

int HostProcess::run(const QStringList &arguments)
{
    start(arguments);
    m_process.closeWriteChannel();
    return wait();
}

QString HostProcess::out()
{
    m_out += m_process.readAllStandardOutput();
    return QString::fromUtf8(m_out);
}

QString HostProcess::err()
{
    m_err += m_process.readAllStandardError();
    return QString::fromUtf8(m_err);
}
