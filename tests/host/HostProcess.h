// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QProcess>
#include <QTemporaryDir>

/**
 * halvora-host as a process, in a home folder of its own that ends with this object. A host that still runs then
 * is killed.
 */
class HostProcess final
{
public:
    HostProcess();
    ~HostProcess();

    QString home() const { return m_home.path(); }
    void set(const QString &variable, const QString &value) { m_environment.insert(variable, value); }
    void unset(const QString &variable) { m_environment.remove(variable); }

    /// Writes a file into the home folder, with the folders above it, and returns its path.
    QString writeFile(const QString &name, const QByteArray &content) const;

    void start(const QStringList &arguments) { startProgram(QStringLiteral(HALVORA_HOST), arguments); }
    /// The same on a terminal.
    void startOnTerminal(const QStringList &arguments);
    void type(const QByteArray &text) { m_process.write(text); }
    /// Waits until the terminal shows a text. False when it does not come.
    bool waitForText(const QByteArray &text);

    QByteArray commandLine() const; ///< as everybody on the machine can read it while the host runs
    void sendSignal(int number);
    bool catches(int number) const; ///< whether the host has a handler of its own for that signal

    /// Waits for the end. The exit status, or -1 when the host does not end, or crashes.
    int wait();
    bool isEnded() const { return m_process.state() == QProcess::NotRunning; }
    int run(const QStringList &arguments);

    QString out(); ///< what it wrote so far
    QString err();

private:
    void startProgram(const QString &program, const QStringList &arguments);

    QTemporaryDir m_home;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QProcess m_process;
    QByteArray m_out;
    QByteArray m_err;
};
