// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/CoverPalette.h"

#include <array>

CoverPalette CoverPalette::of(quint64 number)
{
    static const std::array<std::array<QRgb, 5>, 10> palettes{{
        {0x14213d, 0x1d4e89, 0x00b2ca, 0xf79256, 0xfbf3e4},
        {0x2b1d2e, 0x6d2e46, 0xa26769, 0xd5b9b2, 0xfdf6f0},
        {0x0b2027, 0x40798c, 0x70a9a1, 0xcfd7c7, 0xf6f1d1},
        {0x231942, 0x5e548e, 0x9f86c0, 0xe0b1cb, 0xfff5fb},
        {0x1b1b1e, 0x96031a, 0xfaa916, 0xe8ddb5, 0xfbfffe},
        {0x10312b, 0x1f6f5c, 0x5fb49c, 0xf2d492, 0xfcf7e6},
        {0x252422, 0x403d39, 0xeb5e28, 0xccc5b9, 0xfffcf2},
        {0x03256c, 0x2541b2, 0x1768ac, 0x06bee1, 0xf4fcff},
        {0x3d1308, 0x7b2d26, 0xc8553d, 0xf28f3b, 0xffe8d1},
        {0x202c39, 0x283845, 0xb8b08d, 0xf2d492, 0xf6f4ea},
    }};
    const std::array<QRgb, 5> &colours = palettes.at(number % palettes.size());
    return {QColor(colours[0]), QColor(colours[1]), QColor(colours[2]), QColor(colours[3]),
            QColor(colours[4])};
}
