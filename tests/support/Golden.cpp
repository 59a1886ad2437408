// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Golden.h"

#include "support/Text.h"

namespace {

QImage golden(const QString &name)
{
    return QImage(QStringLiteral(HALVORA_GOLDEN "/%1.png").arg(name)).convertToFormat(QImage::Format_RGB32);
}

bool isClose(QRgb a, QRgb b)
{
    const auto isClose = [](int a, int b) { return qAbs(a - b) <= Golden::colourTolerance; };
    return isClose(qRed(a), qRed(b)) && isClose(qGreen(a), qGreen(b)) && isClose(qBlue(a), qBlue(b));
}

bool isNear(QRgb colour, const QImage &other, int x, int y)
{
    for (int row = qMax(0, y - 1); row <= qMin(other.height() - 1, y + 1); ++row) {
        const auto *line = reinterpret_cast<const QRgb *>(other.constScanLine(row));
        for (int column = qMax(0, x - 1); column <= qMin(other.width() - 1, x + 1); ++column) {
            if (isClose(line[column], colour))
                return true;
        }
    }
    return false;
}

// Both of one size and of 32 bits.
QVector<QPoint> wrongPlaces(const QImage &picture, const QImage &golden)
{
    QVector<QPoint> places;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (!isNear(picture.pixel(x, y), golden, x, y) || !isNear(golden.pixel(x, y), picture, x, y))
                places << QPoint(x, y);
        }
    }
    return places;
}

QRect around(const QVector<QPoint> &places)
{
    QRect around;
    for (const QPoint &place : places)
        around |= QRect(place, QSize(1, 1));
    return around;
}

} // namespace

bool Golden::isRenewing()
{
    return qEnvironmentVariableIsSet("HALVORA_RENEW_GOLDEN");
}

void Golden::save(const QImage &picture, const QString &name)
{
    picture.convertToFormat(QImage::Format_RGB888)
        .save(QStringLiteral(HALVORA_GOLDEN "/%1.png").arg(name), "PNG", 0);
}

QString Golden::complaint(const QImage &picture, const QString &name)
{
    const QImage right = golden(name);
    const QImage seen = picture.convertToFormat(QImage::Format_RGB32);
    if (right.size() != seen.size())
        return "%1 is %2 pixels wide"_s.arg(name).arg(right.width());
    const QVector<QPoint> places = wrongPlaces(seen, right);
    if (places.size() <= wrongPixels)
        return {};
    const QRect box = around(places);
    return "%1: %2 pixels are wrong, from (%3, %4) to (%5, %6)"_s.arg(name)
        .arg(places.size())
        .arg(box.left())
        .arg(box.top())
        .arg(box.right())
        .arg(box.bottom());
}

QString Golden::writeDifference(const QImage &picture, const QString &name)
{
    const QString path = QStringLiteral(HALVORA_DIFFERENCES "/%1-%2.png").arg(name);
    picture.save(path.arg("seen"_s));
    const QImage right = golden(name);
    const QImage seen = picture.convertToFormat(QImage::Format_RGB32);
    QImage difference = seen;
    for (int y = 0; y < difference.height(); ++y) {
        for (int x = 0; x < difference.width(); ++x) {
            const int pale = 192 + qGray(seen.pixel(x, y)) / 4;
            difference.setPixel(x, y, qRgb(pale, pale, pale));
        }
    }
    if (right.size() == seen.size()) {
        const QVector<QPoint> places = wrongPlaces(seen, right);
        for (const QPoint &place : places)
            difference.setPixel(place, qRgb(255, 0, 0));
    }
    difference.save(path.arg("difference"_s));
    return path.arg("difference"_s);
}
