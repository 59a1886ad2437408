// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QImage>
#include <QString>

/**
 * Draws an album cover that follows from its seed: one of eight compositions in one of ten palettes, with the
 * album's name and the artist's set in type. The same seed gives the same picture at every width. A value;
 * needs a QGuiApplication for its fonts.
 */
class CoverPainter final
{
public:
    CoverPainter(quint32 seed, const QString &title, const QString &artist);

    /// The square picture, `width` pixels wide, opaque. Below 100 pixels the artist's name is left out.
    QImage paint(int width) const;

private:
    quint32 m_seed;
    QString m_title;
    QString m_artist;
};
