// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/CoverPainter.h"

#include <QFontMetricsF>
#include <QPainter>

#include "simulator/CoverCompositions.h"
#include "simulator/Words.h"

namespace {

using CoverCompositions::Place;
using CoverCompositions::side;

struct TypeArea
{
    QRectF title;
    QRectF artist;
    int largest; // size of the title's type, in units
};

TypeArea areaAt(Place place)
{
    // Inside of the circle that players cut out of a cover.
    switch (place) {
    case Place::Top:
        return {QRectF(110, 78, side - 220, 60), QRectF(150, 138, side - 300, 32), 52};
    case Place::Bottom:
        return {QRectF(110, 430, side - 220, 60), QRectF(150, 490, side - 300, 32), 52};
    case Place::Poster:
        break;
    }
    return {QRectF(150, 110, side - 150 - 90, 320), QRectF(150, 470, 280, 40), 84};
}

QFont fontOf(quint64 choice, int size)
{
    const bool isSerif = choice % 2 == 0;
    QFont font(isSerif ? QStringLiteral("DejaVu Serif Condensed") : QStringLiteral("DejaVu Sans Condensed"));
    font.setStyleHint(isSerif ? QFont::Serif : QFont::SansSerif);
    font.setBold(choice / 2 % 3 != 0);
    font.setItalic(choice / 6 % 4 == 0);
    font.setPixelSize(size);
    return font;
}

// The largest type in which the text fits its area, words kept whole.
QFont fitting(const QString &text, const QRectF &area, int largest, int flags, quint64 choice)
{
    int size = largest;
    for (; size > 14; size -= 2) {
        const QRectF needed = QFontMetricsF(fontOf(choice, size)).boundingRect(area, flags, text);
        if (needed.width() <= area.width() && needed.height() <= area.height())
            break;
    }
    return fontOf(choice, size);
}

} // namespace

CoverPainter::CoverPainter(quint32 seed, const QString &title, const QString &artist)
    : m_seed(seed), m_title(title), m_artist(artist)
{
}

QImage CoverPainter::paint(int width) const
{
    QImage image(width, width, QImage::Format_RGB32);
    const CoverPalette palette = CoverPalette::of(Words::mix(m_seed, 31));
    image.fill(palette.ground);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(Qt::NoPen);
    painter.scale(qreal(width) / side, qreal(width) / side);

    const int which = int(Words::mix(m_seed, 30) % CoverCompositions::count);
    const Place place = CoverCompositions::draw(which, painter, palette, Words::mix(m_seed, 32));

    const TypeArea area = areaAt(place);
    const bool isPoster = place == Place::Poster;
    const Qt::Alignment alignment = isPoster ? Qt::AlignLeft : Qt::AlignHCenter;
    const int flags = isPoster ? int(Qt::AlignLeft) | Qt::AlignTop | Qt::TextWordWrap : int(Qt::AlignCenter);
    const quint64 choice = Words::mix(m_seed, 33);
    const QString title = isPoster ? m_title.toUpper() : m_title;
    painter.setPen(palette.light);
    painter.setFont(fitting(title, area.title, area.largest, flags, choice));
    painter.drawText(area.title, flags, title);
    if (width >= 100) {
        painter.setPen(palette.bright);
        painter.setFont(fitting(m_artist, area.artist, 26, Qt::AlignLeft, choice + 6));
        painter.drawText(area.artist, int(alignment | Qt::AlignVCenter), m_artist);
    }
    return image;
}
