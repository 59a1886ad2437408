// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "images/AsyncImageProvider.h"

#include "images/ImageDownloader.h"

AsyncImageProvider::AsyncImageProvider()
    : QQuickImageProvider(QQmlImageProviderBase::Image, QQmlImageProviderBase::ForceAsynchronousImageLoading)
{
}

QImage AsyncImageProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const ImageDownloader *downloader = ImageDownloader::instance();
    if (!downloader->isCached(id))
        return {};
    QImage image = downloader->cachedImage(id);
    if (requestedSize.width() >= 0 && requestedSize.height() >= 0)
        image = image.scaled(requestedSize, Qt::KeepAspectRatio, Qt::FastTransformation);
    if (size)
        *size = image.size();
    return image;
}
