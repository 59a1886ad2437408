// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>

#include <algorithm>
#include <iterator>

/// The entry of a table whose `word` is `text`; null without one.
template<typename Entry, std::size_t count>
const Entry *entryOf(const Entry (&table)[count], const QByteArray &text)
{
    const auto *const found = std::find_if(std::begin(table), std::end(table),
                                           [&text](const Entry &entry) { return text == entry.word; });
    return found == std::end(table) ? nullptr : found;
}
