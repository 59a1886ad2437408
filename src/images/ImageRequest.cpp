// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "images/ImageRequest.h"

#include "images/ImageDownloader.h"

#include <QQuickItem>
#include <QVariant>

void requestPicture(const QString &uri, QQuickItem *item)
{
    ImageDownloader *downloader = ImageDownloader::instance();
    if (downloader->isCached(uri))
        QMetaObject::invokeMethod(item, "updateImage", Qt::AutoConnection, Q_ARG(QVariant, QVariant(uri)));
    else
        downloader->requestImage(uri, item);
}
