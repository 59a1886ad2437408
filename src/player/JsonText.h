// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

/**
 * One value of a JSON message as it was written, not read yet. A value that shares the message's memory, for
 * as long as it lives; for any thread.
 */
struct JsonText
{
    QString message;
    int begin = 0; ///< in `message`
    int end = 0;   ///< behind the value

    bool isEmpty() const { return begin == end; }
    QByteArray toUtf8() const
    {
        return QString::fromRawData(message.constData() + begin, end - begin).toUtf8();
    }
};
