// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostSettings.h"

#include "HostLog.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontDatabase>
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

QString ensureUniqueId()
{
    const QString key = QStringLiteral("uniqueID");
    QSettings settings;
    const QString kept = settings.value(key).toString();
    if (!kept.isEmpty())
        return kept;
    const QString made = QUuid::createUuid().toString(QUuid::WithoutBraces);
    settings.setValue(key, made);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        qCWarning(lcHost) << "the settings cannot be written:" << settings.fileName();
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

bool installLanguage(const QString &language)
{
    if (language == QLatin1String("en"))
        return true;
    auto *translator = new QTranslator(QCoreApplication::instance());
    return translator->load(QStringLiteral(":/Translations/Halvora_%1.qm").arg(language))
        && QCoreApplication::installTranslator(translator);
}
