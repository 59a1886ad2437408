// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "images/PictureDecoder.h"

#include <QBuffer>
#include <QImageReader>

QImage PictureDecoder::decoded(const QByteArray &body)
{
    if (body.size() > maxBytes)
        return {};
    QBuffer buffer;
    buffer.setData(body);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QSize size = reader.size(); // of a bitmap that begins with its topmost line, the height is negative
    const qint64 pixels = qAbs(qint64(size.width()) * size.height());
    return size != QSize() && pixels <= maxPixels ? reader.read() : QImage();
}
