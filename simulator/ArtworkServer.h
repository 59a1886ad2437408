// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QCache>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTcpServer>

#include "simulator/ArtworkFaults.h"
#include "simulator/HttpResponse.h"

class HttpConnection;

/**
 * Serves generated album covers over HTTP at "/covers/<seed>-<width>.png" and ".jpg", on a port of its own or
 * on connections that another server hands over. A width is 1 to 4096 pixels; any other path is not found.
 *
 * Lives on its owner's thread; a cover is drawn at its first request, in a few milliseconds, and kept.
 * Drawing needs a QGuiApplication.
 */
class ArtworkServer final : public QObject
{
    Q_OBJECT

public:
    explicit ArtworkServer(QObject *parent = nullptr);

    /// The path of a cover; `type` is "png" or "jpg".
    static QString coverPath(quint32 seed, int width, const QString &type = QStringLiteral("png"));

    /// Listens on 127.0.0.1, port 0 lets the system choose. False when the port cannot be had.
    bool listen(quint16 port = 0);
    quint16 port() const { return m_server.serverPort(); } ///< 0 unless it listens
    QString errorString() const { return m_server.errorString(); }

    /// The whole address of a path on the own port.
    QString url(const QString &path) const;

    /// Takes over a connection on which requests are to come.
    void adopt(QTcpSocket *socket);

    /// Serves these bytes under a path from now on.
    void setFile(const QString &path, const QByteArray &contentType, const QByteArray &bytes);

    ArtworkFaults &faults() { return m_faults; }

    QStringList requestedPaths() const { return m_paths; } ///< in order of arrival
    int requestCount(const QString &path) const { return m_paths.count(path); }
    int acceptedConnections() const { return m_accepted; }
    void clearRequests() { m_paths.clear(); }

Q_SIGNALS:
    void requestReceived(const QString &path); ///< emitted before it is answered
    // Each request and answer in words, as they pass; of a picture only its size.
    void textReceived(const QString &text);
    void textSent(const QString &text);

private:
    void answer(HttpConnection *connection, const QString &path);
    HttpResponse response(const QString &path);
    HttpResponse cover(const QString &path);
    void spoil(HttpResponse &response) const;

    struct File
    {
        QByteArray contentType;
        QByteArray bytes;
    };

    QTcpServer m_server;
    ArtworkFaults m_faults;
    QHash<QString, File> m_files;
    QCache<QString, QByteArray> m_covers;
    QStringList m_paths;
    int m_accepted = 0;
};
