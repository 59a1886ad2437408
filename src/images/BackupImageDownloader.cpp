// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "images/BackupImageDownloader.h"

#include "images/BackupAnswer.h"
#include "images/BodyBound.h"
#include "player/PlayerItem.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSet>
#include <QVariant>

namespace {

// Batches that are not freed yet; for the GUI thread.
QSet<BackupImageDownloader *> &batches()
{
    static QSet<BackupImageDownloader *> set;
    return set;
}

QString endpoint()
{
    const QString other = qEnvironmentVariable("HALVORA_LASTFM_ENDPOINT");
    return other.isEmpty() ? QStringLiteral("http://ws.audioscrobbler.com") : other;
}

QString escaped(QString name)
{
    return name.replace(QLatin1Char(' '), QLatin1Char('+')).toHtmlEscaped();
}

// The query of one item, in QUrl's words ("100%" becomes "100%25"), since replies give their address so.
QString address(const QString &endpoint, const PlayerItem *item)
{
    const bool isTrack = item->type() == QLatin1String("track");
    const bool isAlbum = item->type() == QLatin1String("album");
    const QString artist = isTrack || isAlbum ? item->property("artistsString").toString() : QString();
    const QString album = isTrack ? item->property("album").toString() : isAlbum ? item->name() : QString();
    const QString text = endpoint + QLatin1String("/2.0/?artist=") + escaped(artist)
        + QLatin1String("&album=") + escaped(album)
        + QLatin1String("&method=album.getInfo&api_key=e94b07d1c3a26f8850dd13f7a8c642b9&format=json");
    return QUrl(text).toString();
}

// Whether the item is still there is asked in the GUI thread, where items live and die.
void store(const QPointer<PlayerItem> &item, const QHash<int, QString> &images)
{
    const auto assign = [item, images] {
        if (item)
            *item->images = images;
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), assign, Qt::QueuedConnection);
}

} // namespace

BackupImageDownloader::BackupImageDownloader(QObject *parent) : QThread(parent)
{
    if (batches().isEmpty())
        qAddPostRoutine(&BackupImageDownloader::endAll);
    batches().insert(this);
    moveToThread(this); // replies are handled where they are fetched
    const QPointer<BackupImageDownloader> self(this);
    connect(this, &QThread::finished, QCoreApplication::instance(), [self] { delete self; });
}

BackupImageDownloader::~BackupImageDownloader()
{
    quit();
    wait();
    batches().remove(this);
    if (batches().isEmpty())
        qRemovePostRoutine(&BackupImageDownloader::endAll);
}

void BackupImageDownloader::endAll()
{
    const auto all = batches();
    qDeleteAll(all);
}

void BackupImageDownloader::requestImages(const QList<PlayerItem *> &items)
{
    const QString service = endpoint();
    for (PlayerItem *item : items)
        m_requests.insert(address(service, item), item);
    start(QThread::InheritPriority);
}

void BackupImageDownloader::run()
{
    QNetworkAccessManager manager;
    connect(&manager, &QNetworkAccessManager::finished, this, &BackupImageDownloader::replyFinished);
    const QStringList addresses = m_requests.keys();
    for (const QString &address : addresses)
        BodyBound::set(manager.get(QNetworkRequest(QUrl(address))), maxBytes);
    endWhenDone(); // an empty batch has no reply to wait for
    exec();
    disconnect(&manager, nullptr, this, nullptr);
}

void BackupImageDownloader::replyFinished(QNetworkReply *reply)
{
    reply->deleteLater();
    const QPointer<PlayerItem> item = m_requests.take(reply->url().toString());
    if (reply->error() == QNetworkReply::NoError) {
        if (const auto pictures = BackupAnswer::pictures(reply->readAll()))
            store(item, *pictures);
    }
    endWhenDone();
}

void BackupImageDownloader::endWhenDone()
{
    if (!m_requests.isEmpty())
        return;
    Q_EMIT imagesDownloaded();
    quit();
}
