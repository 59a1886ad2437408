// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/JsonText.h"

#include <QStringView>

/**
 * Reads one value of a long JSON message in a single pass, without building anything of what is not wanted. A
 * value for the stack of one function, on any thread.
 *
 * It knows plain messages alone, those that servers write, and fails on everything else: on what is no JSON,
 * and also on keys with escapes, control characters, byte order marks, halves of surrogate pairs, numbers with
 * exponents or of more than 18 digits, and nests of more than 32 levels. What it does not fail on, Qt's parser
 * reads alike; what it fails on is Qt's to judge. A reader that has failed stays so, and every call then gives
 * false.
 */
class JsonReader final
{
public:
    explicit JsonReader(const JsonText &text);

    /// Whether JSON knows it as space between its parts.
    static bool isSpace(QChar character);

    /// Goes into the object or the array that comes next.
    bool enterObject() { return enter(QLatin1Char('{')); }
    bool enterArray() { return enter(QLatin1Char('[')); }
    /// Goes to the value of the next key of the object, or behind the object's end and gives false.
    bool nextKey(QStringView *key);
    /// Goes to the next element of the array, or behind the array's end and gives false.
    bool nextElement();

    /// Reads the text that comes next; a null text for "null".
    bool readText(QString *text);
    /// Reads a whole number of at most nine digits.
    bool readNumber(int *number);
    /// Reads the texts under some keys of the object that comes next, null where there is none, and passes
    /// over the rest.
    template<int count>
    bool readTexts(const QLatin1String (&keys)[count], QString (&texts)[count])
    {
        return readTexts(keys, texts, count);
    }
    /// Passes over any value.
    bool skip();
    /// Whether the text has been read to its end, and was plain.
    bool isComplete();
    bool hasFailed() const { return m_failed; }
    /// Place in the message, with the space ahead of the next value passed.
    int position();
    /// What stands between a place and the end of the value that was read last.
    JsonText since(int place) const { return {m_message, place, int(m_at - m_begin)}; }

private:
    bool readTexts(const QLatin1String *keys, QString *texts, int count);
    bool fail();
    void passSpace();
    bool take(QLatin1Char character);
    bool enter(QLatin1Char bracket);
    bool next(QLatin1Char bracket);
    const QChar *passText(bool *hasEscapes);
    bool passEscape(const QChar **at) const;
    bool passDigits();
    bool skipObject();
    bool skipArray();
    bool skipNumber();
    bool skipWord(QLatin1String word);

    const QString m_message;
    const QChar *const m_begin; // of the whole message
    const QChar *m_at;
    const QChar *const m_end;
    int m_depth = 0;
    bool m_fresh = false; // right behind an opening bracket
    bool m_failed = false;
};
