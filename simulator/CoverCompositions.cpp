// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/CoverCompositions.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include <array>

#include "simulator/Words.h"

namespace {

using CoverCompositions::Place;
using CoverCompositions::side;

const QRectF square(0, 0, side, side);

// A number from 0 to 1 that follows from the cover's detail and a purpose.
qreal unit(quint64 detail, quint64 purpose)
{
    return qreal(Words::mix(detail, purpose) % 1000) / 999;
}

QColor faded(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}

Place sun(QPainter &painter, const CoverPalette &palette, quint64 detail)
{
    QLinearGradient sky(0, 0, 0, side);
    sky.setColorAt(0, palette.ground);
    sky.setColorAt(0.55, palette.middle);
    sky.setColorAt(0.72, palette.bright);
    painter.fillRect(square, sky);
    const qreal radius = 110 + 60 * unit(detail, 1);
    painter.setBrush(palette.light);
    painter.drawEllipse(QPointF(side * (0.35 + 0.3 * unit(detail, 2)), 400), radius, radius);
    painter.fillRect(QRectF(0, 420, side, 180), palette.ground);
    for (int wave = 0; wave < 9; ++wave)
        painter.fillRect(QRectF(120 - wave * 11, 430 + wave * 15, 360 + wave * 22, 2 + wave * 0.6),
                         faded(palette.bright, 170 - wave * 14));
    return Place::Top;
}

Place rings(QPainter &painter, const CoverPalette &palette, quint64 detail)
{
    painter.fillRect(square, palette.deep);
    const std::array<QColor, 4> colours{palette.bright, palette.ground, palette.middle, palette.light};
    const QPointF centre(side * (0.25 + 0.5 * unit(detail, 1)), side * (0.2 + 0.4 * unit(detail, 2)));
    const int step = 30 + int(24 * unit(detail, 3));
    int turn = 0;
    for (int radius = 11 * step; radius > 0; radius -= step) {
        painter.setBrush(colours.at(std::size_t(turn++ % 4)));
        painter.drawEllipse(centre, radius, radius);
    }
    painter.fillRect(QRectF(0, 424, side, 176), palette.ground);
    return Place::Bottom;
}

Place stripes(QPainter &painter, const CoverPalette &palette, quint64 detail)
{
    painter.fillRect(square, palette.light);
    painter.save();
    painter.translate(side / 2, side / 2);
    painter.rotate(-60 + 120 * unit(detail, 1));
    const std::array<QColor, 4> colours{palette.ground, palette.middle, palette.bright, palette.deep};
    qreal x = -500;
    for (quint64 stripe = 0; x < 500; ++stripe) {
        const qreal width = 18 + 70 * unit(detail, 10 + stripe);
        painter.fillRect(QRectF(x, -500, width, 1000), colours.at(std::size_t(stripe % 4)));
        x += width + 10 + 30 * unit(detail, 40 + stripe);
    }
    painter.restore();
    painter.fillRect(QRectF(0, 0, side, 176), palette.ground);
    return Place::Top;
}

Place tiles(QPainter &painter, const CoverPalette &palette, quint64 detail)
{
    const std::array<QColor, 5> colours{palette.ground, palette.deep, palette.middle, palette.bright,
                                        palette.light};
    constexpr int cell = 120;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 5; ++column) {
            const quint64 choice = Words::mix(detail, quint64(row * 5 + column));
            const QRectF tile(column * cell, row * cell, cell, cell);
            painter.fillRect(tile, colours.at(choice % 5));
            painter.setBrush(colours.at((choice / 5 % 4 + choice % 5 + 1) % 5));
            const qreal dx = (choice / 20 % 2 == 0) ? 0 : -cell;
            const qreal dy = (choice / 40 % 2 == 0) ? 0 : -cell;
            painter.save();
            painter.setClipRect(tile);
            painter.drawEllipse(tile.translated(dx, dy).adjusted(0, 0, cell, cell));
            painter.restore();
        }
    }
    painter.fillRect(QRectF(0, 424, side, 176), palette.ground);
    return Place::Bottom;
}

Place ridges(QPainter &painter, const CoverPalette &palette, quint64 detail)
{
    QLinearGradient sky(0, 0, 0, side);
    sky.setColorAt(0, palette.light);
    sky.setColorAt(1, palette.bright);
    painter.fillRect(square, sky);
    const std::array<QColor, 4> colours{palette.bright.darker(115), palette.middle, palette.deep,
                                        palette.ground};
    for (int ridge = 0; ridge < 4; ++ridge) {
        const qreal base = 230 + ridge * 75;
        QPainterPath path(QPointF(0, side));
        for (int x = 0; x <= side; x += 6) {
            const qreal phase = x / (95.0 - ridge * 12) + 7 * unit(detail, quint64(ridge));
            const qreal rough = 18 * qSin(phase * 2.7 + ridge) + 7 * qSin(phase * 6.1);
            path.lineTo(x, base + 46 * qSin(phase) + rough);
        }
        path.lineTo(side, side);
        painter.fillPath(path, colours.at(std::size_t(ridge)));
    }
    return Place::Bottom;
}

Place poster(QPainter &painter, const CoverPalette &palette, quint64 detail)
{
    painter.fillRect(square, palette.ground);
    const qreal edge = 60 + 60 * unit(detail, 1);
    painter.fillRect(QRectF(0, 0, edge, side), palette.bright);
    painter.setBrush(palette.middle);
    const qreal radius = 70 + 50 * unit(detail, 2);
    painter.drawEllipse(QPointF(side - 70 - 60 * unit(detail, 3), side - 110), radius, radius);
    painter.fillRect(QRectF(edge, 455, side - edge, 5), palette.light);
    return Place::Poster;
}

Place waves(QPainter &painter, const CoverPalette &palette, quint64 detail)
{
    QLinearGradient ground(0, 0, side, side);
    ground.setColorAt(0, palette.ground);
    ground.setColorAt(1, palette.deep);
    painter.fillRect(square, ground);
    painter.setBrush(Qt::NoBrush);
    const qreal length = 110 + 60 * unit(detail, 1);
    for (int line = 0; line < 30; ++line) {
        // One swing that slowly turns into another from line to line.
        const qreal share = line / 29.0;
        QPainterPath path;
        for (int x = 0; x <= side; x += 5) {
            const qreal first = qSin(x / length + 6 * unit(detail, 2));
            const qreal second = qSin(x / (length * 0.55) + 6 * unit(detail, 3));
            const QPointF point(x, 250 + share * 220 + 90 * (first * (1 - share) + second * share));
            x == 0 ? path.moveTo(point) : path.lineTo(point);
        }
        painter.setPen(QPen(line % 6 == 0 ? palette.bright : faded(palette.light, 190), 2.4));
        painter.drawPath(path);
    }
    painter.setPen(Qt::NoPen);
    return Place::Top;
}

Place lights(QPainter &painter, const CoverPalette &palette, quint64 detail)
{
    painter.fillRect(square, palette.ground);
    const std::array<QColor, 3> colours{palette.middle, palette.bright, palette.deep};
    for (quint64 light = 0; light < 9; ++light) {
        const QPointF centre(side * unit(detail, light), side * 0.85 * unit(detail, 20 + light));
        const qreal radius = 90 + 190 * unit(detail, 40 + light);
        QRadialGradient glow(centre, radius);
        glow.setColorAt(0, faded(colours.at(light % 3), 230));
        glow.setColorAt(1, faded(colours.at(light % 3), 0));
        painter.setBrush(glow);
        painter.drawEllipse(centre, radius, radius);
    }
    QLinearGradient shade(0, 380, 0, side);
    shade.setColorAt(0, faded(palette.ground, 0));
    shade.setColorAt(1, palette.ground);
    painter.fillRect(QRectF(0, 380, side, 220), shade);
    return Place::Bottom;
}

} // namespace

CoverCompositions::Place CoverCompositions::draw(int which, QPainter &painter, const CoverPalette &palette,
                                                 quint64 detail)
{
    using Composition = Place (*)(QPainter &, const CoverPalette &, quint64);
    static constexpr std::array<Composition, count> table{sun,    rings,  stripes, tiles,
                                                          ridges, poster, waves,   lights};
    return table.at(std::size_t(which))(painter, palette, detail);
}
