// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

/// Tables of texts for data functions.
namespace Rows {

/// Adds a column of QString for each word of `columns`, and a row for each line of `rows`: its name, which may be
/// empty for that of the first cell, and its cells, parted by " ; ". Cells that are left out at the end are empty.
void add(const QString &columns, const QString &rows);

} // namespace Rows
