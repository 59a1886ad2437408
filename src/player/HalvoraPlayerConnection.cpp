// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/HalvoraPlayer.h"

#include "player/LongReply.h"
#include "player/PictureAddress.h"
#include "player/PlayerTiming.h"
#include "player/SocketHandler.h"

#include <QJsonDocument>
#include <QWebSocket>

// The connection of a HalvoraPlayer: dialling, retries, requests and the delivery of their replies.

namespace {

constexpr int ticksBetweenPolls = 60;
constexpr quint64 maxMessage = 24 * 1024
    * 1024; // bytes, some 200,000 rows; the screens stand while it is read

void bound(QWebSocket *socket)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 15, 0)
    socket->setMaxAllowedIncomingFrameSize(maxMessage);
    socket->setMaxAllowedIncomingMessageSize(maxMessage);
#else
    Q_UNUSED(socket)
#endif
}

void scheduleOnce(QTimer *retry, int milliseconds)
{
    if (!retry->isActive())
        retry->start(milliseconds);
}

} // namespace

struct HalvoraPlayer::Poll
{
    const char *method;
    const char *handler;
};

void HalvoraPlayer::startConnection()
{
    stopTicking();
    dropSocket();
    m_pendingHandlers.clear();
    m_nextRequestId = 0;
    m_live = false;
    m_socket = new QWebSocket(QString(), QWebSocketProtocol::Version13);
    bound(m_socket);
    connect(m_socket, &QWebSocket::connected, this, &HalvoraPlayer::socketConnected);
    connect(m_socket, &QWebSocket::disconnected, this, &HalvoraPlayer::socketDisconnected);
    connect(m_socket, &QWebSocket::stateChanged, this, &HalvoraPlayer::socketStateChanged);
    connect(m_socket, QOverload<QAbstractSocket::SocketError>::of(&QWebSocket::error), this,
            &HalvoraPlayer::socketError);
    connect(m_socket, &QWebSocket::textMessageReceived, this, &HalvoraPlayer::socketMessageReceived);
    m_socket->open(
        QUrl(QLatin1String("ws://") + m_ipAddress + QLatin1Char(':') + m_port + QLatin1String("/mopidy/ws")));
}

void HalvoraPlayer::stopConnection()
{
    stopTicking();
    m_dropRetry.stop();
    m_errorRetry.stop();
    dropSocket();
}

// abort() emits disconnected() at once: unhooked first, a socket that we end ourselves schedules no retry.
void HalvoraPlayer::dropSocket()
{
    if (!m_socket)
        return;
    m_socket->disconnect(this);
    m_socket->abort();
    m_socket->deleteLater();
    m_socket = nullptr;
}

void HalvoraPlayer::stopTicking()
{
    if (!m_refreshTimer)
        return;
    m_refreshTimer->stop();
    m_refreshTimer->deleteLater();
    m_refreshTimer = nullptr;
}

void HalvoraPlayer::socketConnected()
{
    stopTicking();
    m_live = true;
    m_refreshTimer = new QTimer;
    m_refreshTimer->setInterval(PlayerTiming::current().tick);
    connect(m_refreshTimer, &QTimer::timeout, this, &HalvoraPlayer::refreshTimerTimeout);
    m_refreshTimer->start();
}

// A refused attempt gives error() and disconnected() both. The short retry is for the loss of a connection that
// stood; attempts go on at the pace of the long one, however the socket tells of their failure.
void HalvoraPlayer::socketDisconnected()
{
    stopTicking();
    if (!m_socket)
        return;
    const PlayerTiming &timing = PlayerTiming::current();
    if (m_live)
        scheduleOnce(&m_dropRetry, timing.dropRetry);
    else
        scheduleOnce(&m_errorRetry, timing.errorRetry);
    m_live = false;
}

void HalvoraPlayer::socketStateChanged(QAbstractSocket::SocketState) { }

void HalvoraPlayer::socketError(QAbstractSocket::SocketError)
{
    stopTicking();
    scheduleOnce(&m_errorRetry, PlayerTiming::current().errorRetry);
}

void HalvoraPlayer::refreshTimerTimeout()
{
    static constexpr Poll fullPoll[] = {
        {"core.get_uri_schemes", "updateUriSchemes"},
        {"core.playback.get_state", "updatePlaybackStatus"},
        {"core.playback.get_current_track", "updateTrackInfo"},
        {"core.tracklist.get_random", "updateRandom"},
        {"core.tracklist.get_repeat", "updateRepeat"},
        {"core.tracklist.get_tl_tracks", "updateQueue"},
        {"core.playlists.as_list", "updatePlaylists"},
    };

    if (m_playPause == Playing)
        post(QStringLiteral("core.playback.get_time_position"), this, "updateTrackTime");
    if (--m_refreshCountdown >= 1)
        return;
    m_refreshCountdown = ticksBetweenPolls;
    for (const Poll &poll : fullPoll)
        post(QLatin1String(poll.method), this, poll.handler);
}

QJsonObject HalvoraPlayer::newRequest(const QString &method)
{
    return {{QStringLiteral("jsonrpc"), QStringLiteral("2.0")},
            {QStringLiteral("id"), QString::number(m_nextRequestId++)},
            {QStringLiteral("method"), method}};
}

int HalvoraPlayer::post(const QString &method, QObject *rec, const char *hdl)
{
    const int id = m_nextRequestId;
    sendRequest(newRequest(method), rec, hdl);
    return id;
}

int HalvoraPlayer::post(const QString &method, const QJsonObject &params, QObject *rec, const char *hdl)
{
    const int id = m_nextRequestId;
    QJsonObject request = newRequest(method);
    request.insert(QStringLiteral("params"), params);
    sendRequest(request, rec, hdl);
    return id;
}

SocketHandler *HalvoraPlayer::sendRequest(const QJsonObject &request, QObject *rec, const char *hdl)
{
    if (!m_socket)
        return nullptr;
    auto record = std::make_unique<SocketHandler>();
    record->id = request.value(QLatin1String("id")).toString().toInt();
    record->method = request.value(QLatin1String("method")).toString();
    record->rec = rec;
    record->hdl = hdl;
    SocketHandler *const kept = record.get();
    m_pendingHandlers[kept->id] = std::move(record);
    m_socket->sendTextMessage(QString::fromUtf8(QJsonDocument(request).toJson(QJsonDocument::Compact)));
    return kept;
}

// Long lists go to those who can read them as they come; everything else, and what they cannot read, goes the way below.
bool HalvoraPlayer::deliverUnread(const QString &message)
{
    const std::optional<LongReply> reply = LongReply::of(message);
    if (!reply)
        return false;
    const auto found = m_pendingHandlers.find(reply->id);
    if (found == m_pendingHandlers.end() || !found->second->rec)
        return false;
    // As for all replies, the record is out of the table while the handler runs; it may dial anew.
    std::unique_ptr<SocketHandler> record = std::move(found->second);
    m_pendingHandlers.erase(found);
    if (reply->deliverTo(record->rec, record->hdl))
        return true;
    m_pendingHandlers[reply->id] = std::move(record);
    return false;
}

void HalvoraPlayer::socketMessageReceived(QString message)
{
    if (deliverUnread(message))
        return;
    const QJsonDocument document = QJsonDocument::fromJson(message.toUtf8());
    if (!document.isObject())
        return;
    const QJsonObject object = document.object();
    if (object.contains(QLatin1String("event"))) {
        eventReceived(object);
        return;
    }
    const auto found = m_pendingHandlers.find(object.value(QLatin1String("id")).toString().toInt());
    if (found == m_pendingHandlers.end())
        return;
    const std::unique_ptr<SocketHandler> record = std::move(found->second);
    m_pendingHandlers.erase(found);
    deliver(*record, object);
}

void HalvoraPlayer::deliver(const SocketHandler &record, const QJsonObject &reply)
{
    const auto result = reply.constFind(QLatin1String("result"));
    const bool refused = result == reply.constEnd();
    if (refused && !record.paramsIfRefused.isEmpty())
        post(record.method, record.paramsIfRefused);
    if (!record.rec)
        return;
    QJsonValue value = refused ? QJsonValue(QJsonValue::Undefined) : result.value();
    if (record.method == QLatin1String("core.library.get_images"))
        value = PictureAddress::completed(value, m_ipAddress, m_port);
    if (qstrncmp(record.hdl, "browse", qstrlen("browse")) == 0)
        QMetaObject::invokeMethod(record.rec, record.hdl, Qt::AutoConnection, Q_ARG(int, record.id),
                                  Q_ARG(QJsonValue, value));
    else
        QMetaObject::invokeMethod(record.rec, record.hdl, Qt::AutoConnection, Q_ARG(QJsonValue, value));
}
