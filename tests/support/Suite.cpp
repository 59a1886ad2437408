// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Suite.h"

#include <QGuiApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <utility>

#ifdef __SANITIZE_THREAD__
#    include "sanitizers/QtOrder.h"
#endif

namespace {

// Qt's own log of the run, with the announced messages already left out of it.
class WarningLog final
{
public:
    void open(const QString &path) { m_file.setFileName(path); }

    /// The warnings that were logged since the last call.
    QByteArrayList take()
    {
        QByteArrayList warnings;
        if (!m_file.isOpen() && !m_file.open(QIODevice::ReadOnly))
            return warnings;
        const QByteArrayList lines = m_file.readAll().split('\n');
        for (const QByteArray &line : lines) {
            if (line.startsWith("QWARN") || line.startsWith("QCRITICAL") || line.startsWith("QSYSTEM"))
                warnings.append(line);
        }
        return warnings;
    }

private:
    QFile m_file;
};

WarningLog warningLog;

void liveIn(const QString &home)
{
    qputenv("HOME", home.toUtf8());
    for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        const QString folder = home + QLatin1Char('/') + QLatin1String(variable).mid(4);
        QDir().mkpath(folder);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv(variable, folder.toUtf8());
    }
    for (const char *variable : {"LANG", "LC_ALL"})
        qputenv(variable, "C.UTF-8");
    qunsetenv("LANGUAGE");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QML_DISABLE_DISK_CACHE", "1");
}

} // namespace

void Suite::cleanup()
{
    QByteArrayList warnings = warningLog.take();
    const QByteArrayList allowed = std::exchange(m_allowed, {});
    for (const QByteArray &part : allowed) {
        const auto isAllowed = [&](const QByteArray &warning) { return warning.contains(part); };
        warnings.erase(std::remove_if(warnings.begin(), warnings.end(), isAllowed), warnings.end());
    }
    QVERIFY2(warnings.isEmpty(),
             "a warning was logged that the test did not announce: " + warnings.join("; "));
}

#ifdef __SANITIZE_THREAD__
using QtOrder::Application;
#else
using Application = QGuiApplication;
#endif

int runSuite(int argc, char **argv, const std::function<std::unique_ptr<Suite>()> &make)
{
    const QTemporaryDir home;
    liveIn(home.path());
    const QString log = home.filePath(QStringLiteral("log.txt"));
    warningLog.open(log);

    Application application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("HalvoraTests"));
    QCoreApplication::setApplicationName(QFileInfo(application.applicationFilePath()).fileName());
    QSettings::setDefaultFormat(QSettings::IniFormat);

    const QStringList outputs{QStringLiteral("-o"),           QStringLiteral("-,txt"),
                              QStringLiteral("-o"),           log + QLatin1String(",txt"),
                              QStringLiteral("-maxwarnings"), QStringLiteral("0")};
    const std::unique_ptr<Suite> suite = make();
    const int failures = QTest::qExec(suite.get(), application.arguments() + outputs);
    const QByteArrayList late = warningLog.take(); // logged outside of any test function
    for (const QByteArray &warning : late)
        fprintf(stderr, "unannounced: %s\n", warning.constData());
    return failures + int(late.size());
}
