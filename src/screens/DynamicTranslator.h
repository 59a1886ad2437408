// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QHash>
#include <QObject>

/**
 * Display texts for words that reach the screens as data: schemes of music servers, types of rows, keys of menu
 * actions. QML makes an instance where it needs one; all share one table, which MainTabController fills once.
 * GUI thread only.
 */
class DynamicTranslator : public QObject
{
    Q_OBJECT

public:
    explicit DynamicTranslator(QObject *parent = nullptr);

    /// The text for `origin`, compared exactly; "" for an unknown word, and for every word before
    /// loadTranslations().
    Q_INVOKABLE QString translate(QString origin) const;
    static QString translation(const QString &origin);

    /// Fills the table with what the application's translators say now. A translator that is installed later
    /// changes nothing until the next call.
    static void loadTranslations();

private:
    static QHash<QString, QString> translationTable;
};
