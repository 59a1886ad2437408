// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostSettings.h"

#include "HostLog.h"

#include <QCoreApplication>
#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QSettings>
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
    const QString text = QFile::rename(settings.fileName(), aside)
        ? QCoreApplication::translate(
              "HostSettings", "The settings are damaged; new ones are begun, the old ones are in \"%1\".")
              .arg(aside)
        : QCoreApplication::translate("HostSettings",
                                      "The settings are damaged and cannot be put aside as \"%1\".")
              .arg(aside);
    sayAtTerminal(text);
}

Sentence writeOut(QSettings &settings)
{
    static bool told = false;
    settings.sync();
    if (settings.status() == QSettings::NoError)
        return {};
    const Sentence problem = [file = settings.fileName()] {
        return QCoreApplication::translate("HostSettings", "The settings cannot be written: %1.").arg(file);
    };
    if (!told)
        sayAtTerminal(problem());
    told = true;
    return problem;
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
