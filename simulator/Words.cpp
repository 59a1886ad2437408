// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/Words.h"

#include <array>

namespace {

constexpr std::array<const char *, 32> adjectives{
    "Paper",  "Silver", "Quiet",   "Northern", "Velvet", "Broken",  "Golden", "Distant",
    "Hollow", "Amber",  "Sudden",  "Winter",   "Gentle", "Crooked", "Pale",   "Electric",
    "Little", "Copper", "Endless", "Salted",   "Wooden", "Blue",    "Second", "Restless",
    "Tidal",  "Open",   "Slow",    "Hidden",   "Late",   "Crimson", "Early",  "Borrowed"};

constexpr std::array<const char *, 40> nouns{
    "Lanterns", "Harbour",  "Orchard", "Machines",  "Rivers",   "Windows", "Gardens",  "Satellites",
    "Letters",  "Mornings", "Rooms",   "Mountains", "Engines",  "Shadows", "Seasons",  "Kites",
    "Bridges",  "Signals",  "Horses",  "Islands",   "Mirrors",  "Fields",  "Stations", "Feathers",
    "Maps",     "Tides",    "Echoes",  "Roofs",     "Comets",   "Candles", "Valleys",  "Stairs",
    "Foxes",    "Anchors",  "Lakes",   "Clocks",    "Sparrows", "Summers", "Trains",   "Voices"};

constexpr std::array<const char *, 24> places{
    "Winter", "the Coast", "Midnight", "Elm Street", "the Attic",  "Marble Hill", "the North", "Sunday",
    "Glass",  "the Water", "Autumn",   "October",    "the Border", "Low Moor",    "the Moon",  "Arden",
    "Noon",   "the Pines", "Solna",    "the Canal",  "Tern Bay",   "Dust",        "Home",      "the Ferry"};

constexpr std::array<const char *, 24> givenNames{"Mara",  "Elias",  "June",  "Tobias", "Ines",  "Caspar",
                                                  "Nora",  "Lukas",  "Signe", "Amos",   "Freya", "Joran",
                                                  "Willa", "Henrik", "Alma",  "Silas",  "Petra", "Otis",
                                                  "Maeve", "Bruno",  "Lotte", "Ezra",   "Dalia", "Rufus"};

constexpr std::array<const char *, 24> familyNames{
    "Holm",   "Vance",    "Ashdown", "Lindqvist", "Marrow",  "Okoro",  "Farrow", "Keller",
    "Sundby", "Reyes",    "Thorne",  "Castel",    "Brandt",  "Wilder", "Novak",  "Hale",
    "Moreau", "Pemberly", "Dunn",    "Ostrow",    "Fenwick", "Saari",  "Blythe", "Corvin"};

constexpr std::array<const char *, 16> genres{"Jazz",      "Folk",  "Electronic", "Ambient", "Indie", "Soul",
                                              "Classical", "Blues", "Rock",       "Pop",     "Dub",   "Bossa",
                                              "House",     "Funk",  "Chamber",    "Country"};

// The next choice from one spread number, and what is left of the number for the choices after it.
template<std::size_t count>
QString pick(const std::array<const char *, count> &words, quint64 &number)
{
    const QString word = QString::fromLatin1(words.at(number % count));
    number /= count;
    return word;
}

} // namespace

quint64 Words::mix(quint64 value, quint64 salt)
{
    quint64 mixed = value + (salt + 1) * 0x9E3779B97F4A7C15ULL;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
    return mixed ^ (mixed >> 31);
}

QString Words::albumTitle(quint32 number)
{
    quint64 choice = mix(number, 1);
    const quint64 form = choice % 4;
    choice /= 4;
    const QString noun = pick(nouns, choice);
    if (form == 0)
        return noun + QStringLiteral(" of ") + pick(places, choice);
    if (form == 1)
        return QStringLiteral("The ") + pick(adjectives, choice) + QLatin1Char(' ') + noun;
    return pick(adjectives, choice) + QLatin1Char(' ') + noun;
}

QString Words::artistName(quint32 number)
{
    quint64 choice = mix(number, 2);
    const bool isBand = choice % 5 < 2;
    choice /= 5;
    if (isBand)
        return QStringLiteral("The ") + pick(adjectives, choice) + QLatin1Char(' ') + pick(nouns, choice);
    return pick(givenNames, choice) + QLatin1Char(' ') + pick(familyNames, choice);
}

QString Words::trackTitle(quint64 number)
{
    quint64 choice = mix(number, 3);
    const quint64 form = choice % 5;
    choice /= 5;
    if (form == 0)
        return pick(nouns, choice) + QStringLiteral(" at ") + pick(places, choice);
    if (form == 1)
        return QStringLiteral("Back to ") + pick(places, choice);
    if (form == 2)
        return pick(givenNames, choice) + QStringLiteral("'s ") + pick(nouns, choice);
    return pick(adjectives, choice) + QLatin1Char(' ') + pick(nouns, choice);
}

QString Words::stationName(quint32 number)
{
    quint64 choice = mix(number, 4);
    return QStringLiteral("Radio ") + pick(adjectives, choice) + QLatin1Char(' ') + pick(genres, choice);
}

QString Words::episodeTitle(quint32 number)
{
    quint64 choice = mix(number, 5);
    return QStringLiteral("With ") + pick(givenNames, choice) + QLatin1Char(' ') + pick(familyNames, choice)
        + QStringLiteral(", on ") + pick(nouns, choice).toLower();
}

QString Words::showComment(quint32 number)
{
    quint64 choice = mix(number, 6);
    return QStringLiteral("Weekly talks about ") + pick(nouns, choice).toLower() + QStringLiteral(" and ")
        + pick(genres, choice).toLower();
}

QString Words::genre(quint32 number)
{
    quint64 choice = mix(number, 7);
    return pick(genres, choice);
}

QString Words::slug(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        if (c.isLetterOrNumber())
            result += c.toLower();
        else if (!result.isEmpty() && !result.endsWith(QLatin1Char('-')))
            result += QLatin1Char('-');
    }
    return result;
}
