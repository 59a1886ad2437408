// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostSettings.h"

#include "HostLog.h"

#include <QCoreApplication>
#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QLocale>
#include <QPointer>
#include <QSettings>
#include <QTranslator>
#include <QUuid>

void nameApplication()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Kestrum"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("kestrum.com"));
    QCoreApplication::setApplicationName(QStringLiteral("halvora-host"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HALVORA_VERSION));
}

void setDamagedSettingsAside()
{
    QSettings settings;
    settings.sync();
    if (settings.status() != QSettings::FormatError)
        return;
    const QString aside = settings.fileName() + QStringLiteral(".damaged");
    QFile::remove(aside);
    QFile::rename(settings.fileName(), aside);
    qCWarning(lcHost) << "the settings are damaged; new ones are begun, the old ones are in" << aside;
}

QString writeOut(QSettings &settings)
{
    static bool told = false;
    settings.sync();
    if (settings.status() == QSettings::NoError)
        return {};
    if (!told)
        qCWarning(lcHost) << "the settings cannot be written:" << settings.fileName();
    told = true;
    return QStringLiteral("The settings cannot be written: %1.").arg(settings.fileName());
}

QString ensureUniqueId()
{
    const QString key = QStringLiteral("uniqueID");
    QSettings settings;
    const QString kept = settings.value(key).toString();
    if (!kept.isEmpty())
        return kept;
    const QString made = QUuid::createUuid().toString(QUuid::WithoutBraces);
    settings.setValue(key, made);
    writeOut(settings);
    return made;
}

void substituteFonts()
{
    const QStringList there = QFontDatabase().families();
    QStringList standIns;
    for (const char *family : {"DejaVu Sans", "Liberation Sans", "Noto Sans"}) {
        if (there.contains(QLatin1String(family)))
            standIns += QLatin1String(family);
    }
    QFont::insertSubstitutions(QStringLiteral("Arial Unicode MS"), standIns);
}

QStringList hostLanguages()
{
    return {QStringLiteral("en"), QStringLiteral("de"), QStringLiteral("it")};
}

QString systemLanguage()
{
    const QString code = QLocale::system().name().left(2);
    return hostLanguages().contains(code) ? code : hostLanguages().first();
}

bool installLanguage(const QString &language)
{
    static QPointer<QTranslator> installed; // the application's
    delete installed;
    if (language == QLatin1String("en"))
        return true;
    installed = new QTranslator(QCoreApplication::instance());
    return installed->load(QStringLiteral(":/Translations/Halvora_%1.qm").arg(language))
        && QCoreApplication::installTranslator(installed);
}
