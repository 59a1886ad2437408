// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostLanguages.h"

#include <QCoreApplication>
#include <QLocale>
#include <QPointer>
#include <QSettings>
#include <QTranslator>

namespace {

using Catalogue = QPointer<QTranslator>; // the application's

bool exchange(Catalogue *installed, const QString &pattern, const QString &language)
{
    delete *installed;
    if (language == QLatin1String("en"))
        return true;
    *installed = new QTranslator(QCoreApplication::instance());
    return (*installed)->load(pattern.arg(language)) && QCoreApplication::installTranslator(*installed);
}

QString knownOrEnglish(const QString &language)
{
    return hostLanguages().contains(language) ? language : hostLanguages().first();
}

} // namespace

QStringList hostLanguages()
{
    return {QStringLiteral("en"), QStringLiteral("de"), QStringLiteral("it")};
}

QString systemLanguage()
{
    return knownOrEnglish(QLocale::system().name().left(2));
}

QString chosenLanguage()
{
    const QString kept = QSettings().value(QStringLiteral("language")).toString();
    return kept.isEmpty() ? systemLanguage() : knownOrEnglish(kept);
}

bool speakAsHost(const QString &language)
{
    static Catalogue installed;
    return exchange(&installed, QStringLiteral(":/host/translations/halvora-host_%1.qm"), language);
}

bool installLanguage(const QString &language)
{
    static Catalogue installed;
    const bool hostSpeaks = speakAsHost(language);
    return exchange(&installed, QStringLiteral(":/Translations/Halvora_%1.qm"), language) && hostSpeaks;
}
