// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

/// "text"_s: a QString of UTF-8 source text, for the tables of the suites.
inline QString operator""_s(const char *text, std::size_t length)
{
    return QString::fromUtf8(text, int(length));
}
