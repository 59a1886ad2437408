// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

/// The few names that Qt 5.15 deprecates and older 5.x does not have under their new place.
namespace QtCompat {

#if QT_VERSION >= QT_VERSION_CHECK(5, 14, 0)
constexpr auto skipEmptyParts = Qt::SkipEmptyParts;
#else
constexpr auto skipEmptyParts = QString::SkipEmptyParts;
#endif

} // namespace QtCompat
