// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QColor>

/// The five colours of a cover.
struct CoverPalette
{
    QColor ground; ///< the dark of the picture
    QColor deep;
    QColor middle;
    QColor bright;
    QColor light; ///< what type is set in

    /// One of ten, by the number's rest.
    static CoverPalette of(quint64 number);
};
