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
    const QSize size = reader.size();
    if (!size.isValid() || qint64(size.width()) * size.height() > maxPixels)
        return {};
    return reader.read();
}
