// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

/**
 * Invented names, each a pure function of a number: the same number gives the same name in every run. All
 * titles, artists and stations are made up from word lists. Callable on any thread.
 */
namespace Words {

/// A well-spread number from `value` and a purpose (`salt`), so that neighbours have nothing in common.
quint64 mix(quint64 value, quint64 salt = 0);

QString albumTitle(quint32 number);
QString artistName(quint32 number);
QString trackTitle(quint64 number);
QString stationName(quint32 number);
QString episodeTitle(quint32 number);
QString showComment(quint32 number); ///< one line on what a podcast is about
QString genre(quint32 number);

/// `text` for a uri: lower case, with "-" for all that is neither letter nor digit.
QString slug(const QString &text);

} // namespace Words
