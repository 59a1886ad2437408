// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QHash>
#include <QList>
#include <QPointer>
#include <QThread>

class PlayerItem;
class QNetworkReply;

/**
 * Finds out, by Last.fm, where there are pictures of items to which the music server has none. It fetches no
 * picture: it fills the items' `images`, and emits none of their signals.
 *
 * One object serves one batch, in a thread of its own, and frees itself in the GUI thread behind
 * imagesDownloaded(); a batch that is under way when the application object goes is ended then, unheard. The
 * items are not owned: one that dies meanwhile is passed over. Answers are read in the batch's thread, and
 * stored in the GUI thread, where items live, before a receiver there gets imagesDownloaded().
 *
 * The service stands at "http://ws.audioscrobbler.com", or where HALVORA_LASTFM_ENDPOINT in the environment
 * says: scheme, host and port without a trailing slash, read for each batch.
 *
 * An item keeps its pictures when its request fails, or the answer is no JSON object, names an error, has no
 * album or is cut off as larger than `maxBytes`. An album without pictures takes them away. There is no
 * time-out: a server that never answers holds the batch.
 */
class BackupImageDownloader final : public QThread
{
    Q_OBJECT

public:
    static constexpr int maxBytes = 1024 * 1024; ///< of one answer

    explicit BackupImageDownloader(QObject *parent);
    ~BackupImageDownloader() override;

    /// Sends a request for each item, with empty names for what is neither track nor album; to be called once, in
    /// the GUI thread. Of items with the same artist and album the last one gets the answer. An empty list is done at
    /// once.
    void requestImages(const QList<PlayerItem *> &items);

Q_SIGNALS:
    void imagesDownloaded(); ///< once, behind the last reply, also when all have failed

public Q_SLOTS:
    void replyFinished(QNetworkReply *reply);

protected:
    void run() override;

private:
    static void endAll();
    void endWhenDone();

    // By address, as a reply will name its own. Filled before the thread starts, the thread's from then on.
    QHash<QString, QPointer<PlayerItem>> m_requests;
};
