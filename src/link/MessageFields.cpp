// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/MessageFields.h"

#include <algorithm>

QStringList MessageFields::split(const QString &text, char separator)
{
    const QLatin1Char mark(separator);
    const QChar *const end = text.constEnd();
    QStringList fields;
    fields.reserve(int(std::count(text.constBegin(), end, mark)) + 1);
    for (const QChar *begin = text.constBegin();;) {
        const QChar *const next = std::find(begin, end, mark);
        fields.append(QString(begin, int(next - begin)));
        if (next == end)
            return fields;
        begin = next + 1;
    }
}

int MessageFields::number(const QString &field)
{
    constexpr int most = 9; // digits that fit
    if (field.isEmpty() || field.size() > most)
        return field.toInt();
    int number = 0;
    for (const QChar character : field) {
        const int digit = character.unicode() - '0';
        if (digit < 0 || digit > 9)
            return field.toInt(); // signs and spaces are Qt's to judge
        number = 10 * number + digit;
    }
    return number;
}
