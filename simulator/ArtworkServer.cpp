// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/ArtworkServer.h"

#include <QBuffer>
#include <QHostAddress>
#include <QImage>
#include <QRegularExpression>
#include <QTcpSocket>

#include "simulator/Catalogue.h"
#include "simulator/CoverPainter.h"
#include "simulator/HttpConnection.h"
#include "simulator/HugePng.h"

namespace {

constexpr int cacheBytes = 32 * 1024 * 1024;
constexpr int widestCover = 4096; // pixels

QByteArray encoded(const QImage &image, const QByteArray &format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format.constData(), format == "JPG" ? 88 : 80);
    return bytes;
}

HttpResponse notFound()
{
    HttpResponse response;
    response.status = "404 Not Found";
    response.body = "There is no such picture.\n";
    return response;
}

} // namespace

ArtworkServer::ArtworkServer(QObject *parent) : QObject(parent), m_covers(cacheBytes)
{
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = m_server.nextPendingConnection())
            adopt(socket);
    });
}

QString ArtworkServer::coverPath(quint32 seed, int width, const QString &type)
{
    return QStringLiteral("/covers/%1-%2.%3").arg(seed).arg(width).arg(type);
}

bool ArtworkServer::listen(quint16 port)
{
    return m_server.listen(QHostAddress::LocalHost, port);
}

QString ArtworkServer::url(const QString &path) const
{
    return QStringLiteral("http://127.0.0.1:%1%2").arg(port()).arg(path);
}

void ArtworkServer::adopt(QTcpSocket *socket)
{
    ++m_accepted;
    auto *connection = new HttpConnection(socket, this);
    connect(connection, &HttpConnection::requestReceived, this,
            [this, connection](const QByteArray &method, const QString &path) {
                Q_EMIT textReceived(QString::fromLatin1(method) + QLatin1Char(' ') + path);
                answer(connection, path);
            });
    connect(connection, &HttpConnection::responseSent, this,
            [this](const HttpResponse &response) { Q_EMIT textSent(response.summary()); });
    connection->start();
}

void ArtworkServer::setFile(const QString &path, const QByteArray &contentType, const QByteArray &bytes)
{
    m_files.insert(path, {contentType, bytes});
}

void ArtworkServer::answer(HttpConnection *connection, const QString &path)
{
    m_paths << path;
    Q_EMIT requestReceived(path);
    HttpResponse answer = response(path);
    if (m_faults.concern(path))
        spoil(answer);
    connection->respond(answer);
}

HttpResponse ArtworkServer::response(const QString &path)
{
    const auto file = m_files.constFind(path);
    if (file == m_files.constEnd())
        return cover(path);
    HttpResponse response;
    response.contentType = file->contentType;
    response.body = file->bytes;
    return response;
}

HttpResponse ArtworkServer::cover(const QString &path)
{
    static const QRegularExpression form(QStringLiteral("^/covers/(\\d{1,9})-(\\d{1,4})\\.(png|jpg)$"));
    const QRegularExpressionMatch match = form.match(path);
    const int width = match.captured(2).toInt();
    if (!match.hasMatch() || width < 1 || width > widestCover)
        return notFound();
    const bool isPng = match.captured(3) == QLatin1String("png");
    if (!m_covers.contains(path)) {
        const quint32 seed = match.captured(1).toUInt();
        const CoverPainter painter(seed, Catalogue::coverTitle(seed), Catalogue::coverArtist(seed));
        const QByteArray bytes = encoded(painter.paint(width), isPng ? "PNG" : "JPG");
        m_covers.insert(path, new QByteArray(bytes), bytes.size());
    }
    HttpResponse response;
    response.contentType = isPng ? "image/png" : "image/jpeg";
    response.body = m_covers.contains(path) ? *m_covers.object(path) : QByteArray();
    return response;
}

void ArtworkServer::spoil(HttpResponse &response) const
{
    if (m_faults.notFound)
        response = notFound();
    if (m_faults.noPicture)
        response.body = "<html><body>Please log in first.</body></html>";
    if (m_faults.hugeDimensions)
        response.body = HugePng::bytes(20000);
    if (!m_faults.redirectTo.isEmpty()) {
        response.status = "302 Found";
        response.location = m_faults.redirectTo.toUtf8();
        response.body.clear();
    }
    if (m_faults.lengthLie != 0) {
        response.announcedLength = qMax(0, response.body.size() + m_faults.lengthLie);
        response.closeAfter = true;
    }
    if (m_faults.truncatedBody) {
        response.announcedLength = response.body.size();
        response.body.truncate(response.body.size() / 2);
        response.closeAfter = true;
    }
    response.isEndless = m_faults.endlessBody;
    response.bytesPerTick = m_faults.slowBytesPerTick;
    response.delayMs = m_faults.delayMs;
}
