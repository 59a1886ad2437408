// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "images/ImageDownloader.h"

#include "images/BodyBound.h"
#include "images/PictureDecoder.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QQuickItem>
#include <QTimer>

ImageDownloader *ImageDownloader::s_instance = nullptr;

namespace {

// Items live and die in the GUI thread, so whether this one is still there is asked there.
void tell(const QPointer<QQuickItem> &item, const QString &uri)
{
    const auto update = [item, uri] {
        if (item)
            QMetaObject::invokeMethod(item, "updateImage", Q_ARG(QVariant, QVariant(uri)));
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), update, Qt::QueuedConnection);
}

} // namespace

ImageDownloader *ImageDownloader::instance()
{
    if (!s_instance) {
        new ImageDownloader;
        qAddPostRoutine(&ImageDownloader::endInstance);
    }
    return s_instance;
}

void ImageDownloader::endInstance()
{
    delete s_instance;
}

ImageDownloader::ImageDownloader(QObject *parent) : QThread(parent)
{
    s_instance = this;
    moveToThread(this); // replies are handled where they are fetched
    start(QThread::InheritPriority);
}

ImageDownloader::~ImageDownloader()
{
    quit();
    wait();
    s_instance = nullptr;
}

void ImageDownloader::run()
{
    QNetworkAccessManager manager;
    connect(&manager, &QNetworkAccessManager::finished, this, &ImageDownloader::replyFinished);
    m_manager = &manager;
    QTimer patience;
    patience.setSingleShot(true);
    patience.setInterval(usualPatience);
    connect(&patience, &QTimer::timeout, this, &ImageDownloader::giveUp);
    m_patience = &patience;
    exec();
    disconnect(&manager, nullptr, this, nullptr);
    m_manager = nullptr;
    m_patience = nullptr;
}

bool ImageDownloader::isCached(const QString &uri) const
{
    const QMutexLocker lock(&m_mutex);
    return m_cache.contains(uri);
}

QImage ImageDownloader::cachedImage(const QString &uri) const
{
    const QMutexLocker lock(&m_mutex);
    return m_cache.value(uri);
}

void ImageDownloader::requestImage(const QString &uri, QQuickItem *item)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (m_pendingRequests.contains(uri))
            return;
        m_pendingRequests.insert(uri, item);
    }
    // The manager serves its own thread only. Posted to a thread that is still starting, the call waits for it.
    QMetaObject::invokeMethod(
        this, [this, uri] { startDownload(uri); }, Qt::QueuedConnection);
}

void ImageDownloader::startDownload(const QString &uri)
{
    if (!m_manager)
        return;
    QNetworkReply *reply = m_manager->get(QNetworkRequest(QUrl(uri)));
    BodyBound::set(reply, PictureDecoder::maxBytes);
    watch(reply);
}

// A server may fall silent. Not a time for each request, as many wait behind others for one of a slow server's few
// connections, and get it.
void ImageDownloader::watch(QNetworkReply *reply)
{
    const auto renew = qOverload<>(&QTimer::start);
    connect(reply, &QNetworkReply::metaDataChanged, m_patience, renew);
    connect(reply, &QNetworkReply::readyRead, m_patience, renew);
    connect(reply, &QNetworkReply::finished, m_patience, renew);
    m_patience->start();
}

void ImageDownloader::giveUp()
{
    int silent = 0;
    const auto replies = m_manager->findChildren<QNetworkReply *>();
    for (QNetworkReply *reply : replies) {
        if (reply->isFinished())
            continue;
        ++silent;
        BodyBound::end(reply);
    }
    // A server that closes while it is asked can leave Qt 5.15 with a connection on which it never asks again.
    if (silent > 0)
        m_manager->clearConnectionCache();
}

void ImageDownloader::setPatience(int milliseconds)
{
    const auto set = [this, milliseconds] {
        if (m_patience)
            m_patience->setInterval(qMax(1, milliseconds));
    };
    QMetaObject::invokeMethod(this, set, Qt::QueuedConnection);
}

void ImageDownloader::discardImage(const QString &uri, QQuickItem *item)
{
    const QMutexLocker lock(&m_mutex);
    const auto entry = m_pendingRequests.find(uri);
    if (entry != m_pendingRequests.end() && entry.value() == item)
        m_pendingRequests.erase(entry);
}

QPointer<QQuickItem> ImageDownloader::takePending(const QString &uri)
{
    const QMutexLocker lock(&m_mutex);
    return m_pendingRequests.take(uri);
}

void ImageDownloader::replyFinished(QNetworkReply *reply)
{
    reply->deleteLater();
    const QString uri = reply->url().toString();
    const QPointer<QQuickItem> item = takePending(uri);
    const bool bounded = !BodyBound::isExceeded(reply);
    if (bounded && reply->error() != QNetworkReply::NoError)
        return;
    addToCache(uri, bounded ? PictureDecoder::decoded(reply->readAll()) : QImage());
    tell(item, uri);
}

void ImageDownloader::addToCache(const QString &uri, const QImage &image)
{
    const QMutexLocker lock(&m_mutex);
    m_cache.insert(uri, image);
    m_cacheOrder.prepend(uri);
    if (m_cacheOrder.size() <= cacheEntries)
        return;
    m_cache.remove(m_cacheOrder.takeLast());
}
