// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQuickImageProvider>

/**
 * Serves "image://async/" + URL to QML from the pictures that ImageDownloader keeps. It never fetches.
 *
 * Owned by the QML engine that it was added to; called on the engine's image thread.
 */
class AsyncImageProvider final : public QQuickImageProvider
{
public:
    AsyncImageProvider();

    /// `id`: the text of the URL. The picture at full size, or fitted into `requestedSize` in its own proportions
    /// when both of its sides are given. A null picture, and `size` untouched, when none is kept for `id`.
    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};
