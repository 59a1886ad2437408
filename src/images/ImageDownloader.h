// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QHash>
#include <QImage>
#include <QList>
#include <QMutex>
#include <QPointer>
#include <QStringList>
#include <QThread>

class QNetworkAccessManager;
class QNetworkReply;
class QQuickItem;
class QTimer;

/**
 * Fetches, decodes and keeps every remote picture of the screens: one object, one thread and one network manager
 * for the whole process.
 *
 * instance() makes it on first use; it ends, with its thread, when the application object goes. isCached(),
 * cachedImage(), requestImage() and discardImage() may be called on any thread; replies are handled, and pictures
 * decoded, in its own thread. One mutex guards the tables for the table work alone: nothing is decoded and nobody
 * is called under it. Items that wait are not owned; one that dies is simply not told.
 *
 * There is one request a URL at a time, and one item registered with it: the first that asked. A failed download
 * leaves no trace, so that the next request tries again; when nothing moves any more, all have failed. A body that
 * is no picture, or over PictureDecoder's bounds, is kept as a null picture and not fetched again while it is kept.
 */
class ImageDownloader final : public QThread
{
    Q_OBJECT

public:
    static constexpr int cacheEntries = 50;     ///< pictures kept, first in, first out
    static constexpr int usualPatience = 60000; ///< milliseconds

    static ImageDownloader *instance();
    ~ImageDownloader() override;

    /// Whether a picture, a null one included, is kept for the text of a URL.
    bool isCached(const QString &uri) const;
    /// A copy of the kept picture at full size; null when there is none.
    QImage cachedImage(const QString &uri) const;
    /// Starts the download and calls `item`'s function updateImage(uri), in the item's thread, when the picture
    /// is there. If a download of that URL is under way, nothing happens and the item is not told.
    void requestImage(const QString &uri, QQuickItem *item);
    /// Withdraws `item` from a download. The picture is kept all the same when it arrives.
    void discardImage(const QString &uri, QQuickItem *item);
    /// Keeps a picture and lets the oldest go.
    void addToCache(const QString &uri, const QImage &image);
    /// For how many milliseconds nothing may move on any download before all that are under way are given up;
    /// usualPatience unless told otherwise, at least 1. Any thread.
    void setPatience(int milliseconds);

Q_SIGNALS:
    void imageDownloaded(QString uri); ///< declared only; items are told directly

public Q_SLOTS:
    void replyFinished(QNetworkReply *reply);

protected:
    void run() override;

private:
    explicit ImageDownloader(QObject *parent = nullptr);
    static void endInstance();
    void startDownload(const QString &uri);
    void watch(QNetworkReply *reply);
    void giveUp();
    QPointer<QQuickItem> takePending(const QString &uri);

    static ImageDownloader *s_instance;

    QNetworkAccessManager *m_manager = nullptr; // these two live in run(), and are used in this thread only
    QTimer *m_patience = nullptr;
    mutable QMutex m_mutex;   // for the three tables below
    QStringList m_cacheOrder; // newest first; a key may stand in it twice
    QHash<QString, QImage> m_cache;
    QHash<QString, QPointer<QQuickItem>> m_pendingRequests;
};
