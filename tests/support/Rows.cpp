// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Rows.h"

#include "support/Text.h"

#include <QRegularExpression>
#include <QtTest>

void Rows::add(const QString &columns, const QString &rows)
{
    static const QRegularExpression mark("\\s*;(\\s+|$)"_s);
    const QStringList names = columns.split(QLatin1Char(' '));
    static QByteArrayList kept; // tables only point to them
    for (const QString &name : names) {
        kept << name.toUtf8();
        QTest::addColumn<QString>(kept.constLast().constData());
    }
    const QStringList lines = rows.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QStringList cells = line.trimmed().split(mark);
        if (cells == QStringList{QString()})
            continue;
        QTestData &row = QTest::newRow(qPrintable(cells.first().isEmpty() ? cells.value(1) : cells.first()));
        for (int i = 1; i <= names.size(); ++i)
            row << cells.value(i);
    }
}
