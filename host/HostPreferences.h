// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "Sentence.h"

#include <QObject>
#include <QString>
#include <QVariantList>

/**
 * What a person can set about the host itself. A change takes effect in the application and is kept in the
 * settings. Owned by main(), in the GUI thread.
 */
class HostPreferences final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString language READ language WRITE setLanguage NOTIFY languageChanged)
    Q_PROPERTY(QVariantList languages READ languages CONSTANT)
    Q_PROPERTY(bool fullScreen READ isFullScreen WRITE setFullScreen NOTIFY fullScreenChanged)

public:
    /// From the settings; without a language there, the system's. One that is not known is complained of on the
    /// terminal, and English stands in for it.
    explicit HostPreferences(QObject *parent = nullptr);

    /// "en", "de" or "it": what the host and the client speak. Any other changes nothing.
    QString language() const { return m_language; }
    void setLanguage(const QString &language);
    /// All of them, each a map of "code" and "name".
    QVariantList languages() const;
    /// Whether the window takes the whole screen.
    bool isFullScreen() const { return m_fullScreen; }
    void setFullScreen(bool fullScreen);

    /// For this run alone, before anybody listens; what the command line says is not kept. False when the library
    /// has no such catalogue.
    bool speak(const QString &language);
    void fillScreen() { m_fullScreen = true; }

Q_SIGNALS:
    void languageChanged();
    void fullScreenChanged();
    void notKept(const Sentence &problem);

private:
    void keep(const QString &key, const QVariant &value);

    QString m_language;
    bool m_fullScreen = false;
};
