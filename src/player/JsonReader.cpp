// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/JsonReader.h"

#include <algorithm>

namespace {

constexpr int mostLevels = 32;
constexpr int mostDigits = 18; // of a number that is passed over

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// A character of a text that stands for itself and needs no second look.
bool isOrdinary(QChar c)
{
    const ushort u = c.unicode();
    return u >= 0x20 && u < 0xd800 && u != '"' && u != '\\';
}

// What a letter behind a backslash stands for; null for one that stands for nothing.
QChar escaped(QChar letter)
{
    switch (letter.unicode()) {
    case '"':
    case '\\':
    case '/':
        return letter;
    case 'b':
        return QLatin1Char('\b');
    case 'f':
        return QLatin1Char('\f');
    case 'n':
        return QLatin1Char('\n');
    case 'r':
        return QLatin1Char('\r');
    case 't':
        return QLatin1Char('\t');
    default:
        return {};
    }
}

int hexadecimal(QChar c)
{
    const ushort u = c.unicode();
    if (u >= '0' && u <= '9')
        return u - '0';
    const int letter = (u | 0x20) - 'a';
    return u < 0x80 && letter >= 0 && letter < 6 ? 10 + letter : -1;
}

// The four digits behind "\u"; -1 when there are not so many.
int codeUnit(const QChar *from, const QChar *end)
{
    if (end - from < 4)
        return -1;
    int unit = 0;
    for (int i = 0; i < 4; ++i) {
        const int digit = hexadecimal(from[i]);
        if (digit < 0)
            return -1;
        unit = unit * 16 + digit;
    }
    return unit;
}

// A text without its escapes, all of which are known to be sound.
QString unescaped(const QChar *from, const QChar *end)
{
    QString text;
    text.reserve(int(end - from));
    while (from != end) {
        if (*from != QLatin1Char('\\')) {
            text.append(*from++);
        } else if (from[1] == QLatin1Char('u')) {
            text.append(QChar(ushort(codeUnit(from + 2, end))));
            from += 6;
        } else {
            text.append(escaped(from[1]));
            from += 2;
        }
    }
    return text;
}

} // namespace

bool JsonReader::isSpace(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\n') || character == QLatin1Char('\r')
        || character == QLatin1Char('\t');
}

JsonReader::JsonReader(const JsonText &text)
    : m_message(text.message),
      m_begin(m_message.constData()),
      m_at(m_begin + text.begin),
      m_end(m_begin + text.end)
{
}

bool JsonReader::fail()
{
    m_failed = true;
    m_at = m_end;
    return false;
}

void JsonReader::passSpace()
{
    while (m_at != m_end && isSpace(*m_at))
        ++m_at;
}

bool JsonReader::take(QLatin1Char character)
{
    passSpace();
    if (m_at == m_end || *m_at != character)
        return false;
    ++m_at;
    return true;
}

bool JsonReader::enter(QLatin1Char bracket)
{
    if (!take(bracket) || ++m_depth > mostLevels)
        return fail();
    m_fresh = true;
    return true;
}

// Goes behind the comma, if there is to be one; false behind the closing bracket.
bool JsonReader::next(QLatin1Char bracket)
{
    const bool first = m_fresh;
    m_fresh = false;
    if (take(bracket)) {
        --m_depth;
        return false;
    }
    return first || take(QLatin1Char(',')) || fail();
}

bool JsonReader::nextKey(QStringView *key)
{
    if (!next(QLatin1Char('}')))
        return false;
    bool hasEscapes = false;
    const QChar *const begin = passText(&hasEscapes);
    if (!begin || hasEscapes)
        return fail();
    *key = QStringView(begin, m_at - 1);
    return take(QLatin1Char(':')) || fail();
}

bool JsonReader::nextElement()
{
    return next(QLatin1Char(']'));
}

// Goes behind the closing quote and gives the place behind the opening one; null when there is no plain text.
const QChar *JsonReader::passText(bool *hasEscapes)
{
    if (!take(QLatin1Char('"')))
        return nullptr;
    const QChar *const begin = m_at;
    const QChar *at = m_at;
    while (at != m_end) {
        if (isOrdinary(*at)) {
            ++at;
        } else if (*at == QLatin1Char('"')) {
            m_at = at + 1;
            return begin;
        } else if (*at == QLatin1Char('\\')) {
            *hasEscapes = true;
            if (!passEscape(&at))
                return nullptr;
        } else if (at->isHighSurrogate() && m_end - at > 1 && at[1].isLowSurrogate()) {
            at += 2;
        } else if (at->unicode() >= 0xe000 && at->unicode() < 0xfffe && *at != QChar::ByteOrderMark) {
            ++at;
        } else {
            return nullptr;
        }
    }
    return nullptr;
}

// Qt judges code units that stand for no character.
bool JsonReader::passEscape(const QChar **at) const
{
    if (m_end - *at < 2)
        return false;
    if ((*at)[1] != QLatin1Char('u')) {
        const bool known = !escaped((*at)[1]).isNull();
        *at += 2;
        return known;
    }
    const int unit = codeUnit(*at + 2, m_end);
    *at += 6;
    if (!QChar::isHighSurrogate(uint(qMax(unit, 0))))
        return unit > 0 && !QChar::isLowSurrogate(uint(unit)) && unit < 0xfffe;
    const bool isPair = m_end - *at >= 6 && **at == QLatin1Char('\\') && (*at)[1] == QLatin1Char('u')
        && QChar::isLowSurrogate(uint(qMax(codeUnit(*at + 2, m_end), 0)));
    *at += 6;
    return isPair;
}

bool JsonReader::readText(QString *text)
{
    passSpace();
    if (m_at != m_end && *m_at == QLatin1Char('n')) {
        *text = QString();
        return skipWord(QLatin1String("null"));
    }
    bool hasEscapes = false;
    const QChar *const begin = passText(&hasEscapes);
    if (!begin)
        return fail();
    const auto length = int(m_at - 1 - begin);
    *text = hasEscapes ? unescaped(begin, m_at - 1) : QString(begin, length);
    return true;
}

bool JsonReader::readNumber(int *number)
{
    constexpr int most = 9;
    passSpace();
    const QChar *const begin = m_at;
    if (!skip() || m_at - begin > most)
        return fail();
    int value = 0;
    for (const QChar *digit = begin; digit != m_at; ++digit) {
        if (!isDigit(*digit))
            return fail();
        value = 10 * value + digit->unicode() - '0';
    }
    *number = value;
    return true;
}

bool JsonReader::skip()
{
    passSpace();
    if (m_at == m_end)
        return fail();
    bool hasEscapes = false;
    switch (m_at->unicode()) {
    case '"':
        return passText(&hasEscapes) || fail();
    case '{':
        return skipObject();
    case '[':
        return skipArray();
    case 't':
        return skipWord(QLatin1String("true"));
    case 'f':
        return skipWord(QLatin1String("false"));
    case 'n':
        return skipWord(QLatin1String("null"));
    default:
        return skipNumber();
    }
}

int JsonReader::position()
{
    passSpace();
    return int(m_at - m_begin);
}

// What a key twice means is Qt's to judge.
bool JsonReader::readTexts(const QLatin1String *keys, QString *texts, int count)
{
    quint32 seen = 0;
    QStringView key;
    enterObject();
    while (nextKey(&key)) {
        const int found = int(std::find(keys, keys + count, key) - keys);
        if (found == count) {
            skip();
        } else if ((seen >> found) & 1) {
            fail();
        } else {
            seen |= 1U << found;
            readText(&texts[found]);
        }
    }
    return !m_failed;
}

bool JsonReader::skipObject()
{
    QStringView key;
    enterObject();
    while (nextKey(&key))
        skip();
    return !m_failed;
}

bool JsonReader::skipArray()
{
    enterArray();
    while (nextElement())
        skip();
    return !m_failed;
}

bool JsonReader::skipNumber()
{
    if (*m_at == QLatin1Char('-'))
        ++m_at;
    const QChar *const begin = m_at;
    if (!passDigits() || (*begin == QLatin1Char('0') && m_at - begin > 1))
        return fail();
    if (m_at != m_end && *m_at == QLatin1Char('.')) {
        ++m_at;
        if (!passDigits())
            return fail();
    }
    const bool goesOn = m_at != m_end && (*m_at == QLatin1Char('e') || *m_at == QLatin1Char('E'));
    return (!goesOn && m_at - begin <= mostDigits) || fail();
}

bool JsonReader::passDigits()
{
    const QChar *const begin = m_at;
    while (m_at != m_end && isDigit(*m_at))
        ++m_at;
    return m_at != begin;
}

bool JsonReader::skipWord(QLatin1String word)
{
    if (m_end - m_at < word.size() || QStringView(m_at, word.size()) != word)
        return fail();
    m_at += word.size();
    return true;
}

bool JsonReader::isComplete()
{
    passSpace();
    return !m_failed && m_at == m_end && m_depth == 0;
}
