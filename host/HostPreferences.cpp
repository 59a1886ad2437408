// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostPreferences.h"

#include "HostLanguages.h"
#include "HostLog.h"
#include "HostSettings.h"

#include <QSettings>

namespace {

const QString languageKey = QStringLiteral("language");
const QString fullScreenKey = QStringLiteral("fullScreen");

} // namespace

HostPreferences::HostPreferences(QObject *parent) : QObject(parent), m_language(chosenLanguage())
{
    const QSettings settings;
    const QString kept = settings.value(languageKey).toString();
    if (!kept.isEmpty() && kept != m_language)
        sayAtTerminal(tr("The settings name a language that is not known: \"%1\".").arg(kept));
    m_fullScreen = settings.value(fullScreenKey).toBool();
}

QVariantList HostPreferences::languages() const
{
    const QStringList codes = hostLanguages();
    const QStringList names = {QStringLiteral("English"), QStringLiteral("Deutsch"),
                               QStringLiteral("Italiano")};
    QVariantList all;
    for (int i = 0; i < codes.size(); ++i) {
        all.append(QVariantMap{{QStringLiteral("code"), codes.at(i)}, {QStringLiteral("name"), names.at(i)}});
    }
    return all;
}

bool HostPreferences::speak(const QString &language)
{
    m_language = language;
    return installLanguage(language);
}

void HostPreferences::setLanguage(const QString &language)
{
    if (!hostLanguages().contains(language) || !speak(language))
        return;
    keep(languageKey, language);
    Q_EMIT languageChanged();
}

void HostPreferences::setFullScreen(bool fullScreen)
{
    m_fullScreen = fullScreen;
    keep(fullScreenKey, fullScreen);
    Q_EMIT fullScreenChanged();
}

void HostPreferences::keep(const QString &key, const QVariant &value)
{
    QSettings settings;
    settings.setValue(key, value);
    const Sentence problem = writeOut(settings);
    if (problem)
        Q_EMIT notKept(problem);
}
