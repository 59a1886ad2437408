// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Password.h"

#include <QCoreApplication>
#include <QFile>

#include <cerrno>
#include <csignal>

#include <termios.h>
#include <unistd.h>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Password)
};

constexpr char variable[] = "HALVORA_PASSWORD";
constexpr qint64 longestLine = 4096;

QString withoutLineEnd(const QByteArray &line)
{
    int length = line.size();
    while (length > 0 && (line.at(length - 1) == '\n' || line.at(length - 1) == '\r'))
        --length;
    return QString::fromUtf8(line.left(length));
}

std::optional<QString> fromFile(const QString &name, QString *error)
{
    QFile file(name);
    if (file.open(QIODevice::ReadOnly))
        return withoutLineEnd(file.readLine(longestLine));
    *error = Text::tr("The password file \"%1\" cannot be read: %2.").arg(name, file.errorString());
    return std::nullopt;
}

/// Keeps the terminal silent, and an interrupt from ending the process while it is: the read ends instead.
class SilentTerminal final
{
public:
    SilentTerminal()
    {
        tcgetattr(STDIN_FILENO, &m_before);
        termios silent = m_before;
        silent.c_lflag &= ~tcflag_t(ECHO);
        silent.c_lflag |= ECHONL;
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
        struct sigaction wakeOnly = {};
        wakeOnly.sa_handler = [](int) {};
        sigaction(SIGINT, &wakeOnly, &m_interrupt);
        sigaction(SIGTERM, &wakeOnly, &m_terminate);
    }
    ~SilentTerminal()
    {
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_before);
        sigaction(SIGINT, &m_interrupt, nullptr);
        sigaction(SIGTERM, &m_terminate, nullptr);
    }
    Q_DISABLE_COPY(SilentTerminal)

private:
    termios m_before = {};
    struct sigaction m_interrupt = {};
    struct sigaction m_terminate = {};
};

std::optional<QString> fromTerminal(const QString &user, QString *error)
{
    const QByteArray prompt = Text::tr("Password for %1: ").arg(user).toLocal8Bit();
    char line[longestLine];
    ssize_t length = -1;
    {
        const SilentTerminal silent;
        if (write(STDERR_FILENO, prompt.constData(), size_t(prompt.size())) >= 0)
            length = read(STDIN_FILENO, line, sizeof line);
    }
    if (length > 0)
        return withoutLineEnd(QByteArray(line, int(length)));
    *error = Text::tr("No password was given.");
    return std::nullopt;
}

} // namespace

static std::optional<QString> anyPassword(const QString &file, const QString &user, QString *error)
{
    if (!file.isEmpty())
        return fromFile(file, error);
    if (qEnvironmentVariableIsSet(variable))
        return qEnvironmentVariable(variable);
    if (isatty(STDIN_FILENO))
        return fromTerminal(user, error);
    *error = Text::tr(
        "--device needs a password: give --password-file FILE, set HALVORA_PASSWORD, or start it "
        "on a terminal.");
    return std::nullopt;
}

// An empty one would make another login of it, in nobody's name.
std::optional<QString> readPassword(const QString &file, const QString &user, QString *error)
{
    const std::optional<QString> password = anyPassword(file, user, error);
    if (!password || !password->isEmpty())
        return password;
    *error = Text::tr("The password is empty.");
    return std::nullopt;
}
