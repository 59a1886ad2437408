// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/MusicServerSimulator.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QPointer>
#include <QTimer>
#include <QTcpSocket>
#include <QWebSocket>

#include <algorithm>
#include <utility>

#include "simulator/JsonSpoiler.h"
#include "simulator/MopidyModels.h"

namespace {

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QString parseError()
{
    const QJsonObject error{{QStringLiteral("code"), -32700},
                            {QStringLiteral("message"), QStringLiteral("Parse error")}};
    return compact({{QStringLiteral("jsonrpc"), QStringLiteral("2.0")},
                    {QStringLiteral("id"), QJsonValue::Null},
                    {QStringLiteral("error"), error}});
}

QJsonObject replyObject(const QJsonValue &id, const RpcReply &outcome)
{
    QJsonObject object{{QStringLiteral("jsonrpc"), QStringLiteral("2.0")}, {QStringLiteral("id"), id}};
    if (outcome.error.isEmpty())
        object.insert(QStringLiteral("result"), outcome.result);
    else
        object.insert(QStringLiteral("error"), outcome.error);
    return object;
}

// Empty for a request in order; otherwise what is wrong with it.
QString faultOf(const QJsonObject &request)
{
    if (request.value(QStringLiteral("jsonrpc")).toString() != QLatin1String("2.0"))
        return QStringLiteral("'jsonrpc' value must be '2.0'");
    if (!request.value(QStringLiteral("method")).isString())
        return QStringLiteral("'method' must be a string");
    const QJsonValue parameters = request.value(QStringLiteral("params"));
    const bool isGood = parameters.isUndefined() || parameters.isArray() || parameters.isObject();
    return isGood ? QString() : QStringLiteral("'params', if given, must be an array or an object");
}

} // namespace

MusicServerSimulator::MusicServerSimulator(const Catalogue &catalogue, QObject *parent)
    : QObject(parent),
      m_catalogue(catalogue),
      m_playback(&m_tracklist, nullptr),
      m_uriSchemes{QStringLiteral("file"),  QStringLiteral("http"), QStringLiteral("https"),
                   QStringLiteral("local"), QStringLiteral("m3u"),  QStringLiteral("podcast"),
                   QStringLiteral("tunein")},
      m_door(QStringLiteral("/mopidy/ws"), nullptr),
      m_webSockets(QStringLiteral("Mopidy"), QWebSocketServer::NonSecureMode)
{
    RpcMethods::addPlayback(m_methods, &m_playback);
    RpcMethods::addTracklist(m_methods, &m_tracklist, &m_playback, m_catalogue);
    RpcMethods::addLibrary(m_methods, m_catalogue);
    RpcMethods::addPlaylists(m_methods, &m_playlists, m_catalogue);
    setRemoveForm(RemoveForm::Criteria);
    m_methods.add(QStringLiteral("core.get_uri_schemes"), {}, [this](const QJsonObject &) {
        return RpcReply{QJsonArray::fromStringList(m_uriSchemes), {}};
    });
    connectParts();
}

MusicServerSimulator::~MusicServerSimulator()
{
    // The sockets report their end while they are torn down; by then there must be nobody to hear it.
    for (QWebSocket *socket : qAsConst(m_sockets))
        socket->disconnect(this);
    qDeleteAll(m_sockets);
}

void MusicServerSimulator::connectParts()
{
    connect(&m_door, &ConnectionSorter::webSocketRequested, &m_webSockets, [this](QTcpSocket *socket) {
        socket->setParent(&m_webSockets); // else nobody owns it when its peer goes in the middle of the handshake
        m_webSockets.handleConnection(socket);
    });
    connect(&m_door, &ConnectionSorter::plainRequested, &m_artwork, &ArtworkServer::adopt);
    connect(&m_webSockets, &QWebSocketServer::newConnection, this, &MusicServerSimulator::acceptSockets);

    connect(&m_playback, &Playback::eventRaised, this, &MusicServerSimulator::sendEvent);
    connect(&m_tracklist, &Tracklist::changed, this,
            [this] { sendEvent(QStringLiteral("tracklist_changed")); });
    connect(&m_tracklist, &Tracklist::optionsChanged, this,
            [this] { sendEvent(QStringLiteral("options_changed")); });
    connect(&m_playlists, &PlaylistShelf::playlistChanged, this, [this](const ShelfPlaylist &playlist) {
        const QJsonObject model = MopidyModels::playlist(playlist);
        sendEvent(QStringLiteral("playlist_changed"), {{QStringLiteral("playlist"), model}});
    });
    connect(&m_playlists, &PlaylistShelf::playlistDeleted, this, [this](const QString &uri) {
        sendEvent(QStringLiteral("playlist_deleted"), {{QStringLiteral("uri"), uri}});
    });
}

bool MusicServerSimulator::listenAgain()
{
    return m_door.isListening() || m_door.listen(m_door.port());
}

QString MusicServerSimulator::host() const
{
    return QStringLiteral("127.0.0.1");
}

void MusicServerSimulator::setRemoveForm(RemoveForm form)
{
    RpcMethods::addTracklistRemove(m_methods, &m_tracklist, form);
}

void MusicServerSimulator::sendEvent(const QString &name, const QJsonObject &fields)
{
    QJsonObject event = fields;
    event.insert(QStringLiteral("event"), name);
    if (m_holdsEvents)
        m_heldEvents << text(name, event);
    else
        sendText(text(name, event));
}

QString MusicServerSimulator::text(const QString &name, const QJsonObject &message)
{
    if (m_faults.spoilField < 0 || !m_faults.concern(name))
        return compact(message);
    return compact(
        JsonSpoiler::spoiled(message, std::exchange(m_faults.spoilField, -1), m_faults.spoilWith).toObject());
}

void MusicServerSimulator::sendText(const QString &text)
{
    for (QWebSocket *socket : qAsConst(m_sockets))
        send(socket, text);
}

void MusicServerSimulator::send(QWebSocket *socket, const QString &text)
{
    Q_EMIT textSent(text);
    socket->sendTextMessage(text);
}

void MusicServerSimulator::dropAll()
{
    // Each one leaves the list while it ends.
    const QList<QWebSocket *> sockets = m_sockets;
    for (QWebSocket *socket : sockets)
        socket->abort();
}

QStringList MusicServerSimulator::requestedMethods() const
{
    QStringList names;
    for (const ReceivedRequest &request : m_requests)
        names << request.method;
    return names;
}

int MusicServerSimulator::requestCount(const QString &method) const
{
    return int(std::count_if(m_requests.cbegin(), m_requests.cend(),
                             [&method](const ReceivedRequest &request) { return request.method == method; }));
}

void MusicServerSimulator::acceptSockets()
{
    while (QWebSocket *socket = m_webSockets.nextPendingConnection()) {
        m_sockets << socket;
        ++m_acceptedSockets;
        connect(socket, &QWebSocket::textMessageReceived, this,
                [this, socket](const QString &text) { handleText(socket, text); });
        connect(socket, &QWebSocket::disconnected, this, [this, socket] { forget(socket); });
        Q_EMIT clientConnected();
    }
}

void MusicServerSimulator::forget(QWebSocket *socket)
{
    if (!m_sockets.removeOne(socket))
        return;
    socket->deleteLater();
    Q_EMIT clientDisconnected();
}

void MusicServerSimulator::handleText(QWebSocket *socket, const QString &text)
{
    Q_EMIT textReceived(text);
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (document.isNull()) {
        send(socket, parseError());
        return;
    }
    const QJsonObject object = document.object();
    const ReceivedRequest request{object.value(QStringLiteral("method")).toString(),
                                  object.value(QStringLiteral("id")), object.value(QStringLiteral("params"))};
    m_requests << request;
    Q_EMIT requestReceived(request.method);
    if (m_faults.dropAtRequest >= 0 && m_faults.dropAtRequest-- == 0) {
        socket->abort();
        return;
    }
    const QString fault = faultOf(object);
    if (fault.isEmpty())
        carryOut(socket, request);
    else
        send(socket, compact(replyObject(QJsonValue::Null, RpcReply::invalidRequest(fault))));
}

void MusicServerSimulator::carryOut(QWebSocket *socket, const ReceivedRequest &request)
{
    m_holdsEvents = !m_faults.eventsFirst;
    const RpcReply result = outcome(request);
    m_holdsEvents = false;
    if (result.endsConnection) {
        socket->abort();
        return;
    }
    if (!request.id.isUndefined())
        reply(socket, request, result);
    const QStringList events = m_heldEvents;
    m_heldEvents.clear();
    for (const QString &event : events)
        sendText(event);
}

RpcReply MusicServerSimulator::outcome(const ReceivedRequest &request)
{
    if (m_faults.errorReply && m_faults.concern(request.method))
        return RpcReply::applicationError(QStringLiteral("Exception"), QStringLiteral("Simulated failure"));
    RpcReply reply = m_methods.call(request.method, request.parameters);
    if (m_faults.results.contains(request.method))
        reply = {m_faults.results.value(request.method), {}};
    return reply;
}

void MusicServerSimulator::reply(QWebSocket *socket, const ReceivedRequest &request, const RpcReply &outcome)
{
    QString answer = text(request.method, replyObject(request.id, outcome));
    int copies = 1;
    int delay = 0;
    if (m_faults.concern(request.method)) {
        if (m_faults.noReply)
            return;
        if (m_faults.replyNoJson)
            answer = QStringLiteral("<html>Bad gateway</html>");
        copies = m_faults.doubleReply ? 2 : 1;
        delay = m_faults.replyDelayMs;
    }
    const QPointer<QWebSocket> receiver(socket);
    const auto sendCopies = [this, receiver, answer, copies] {
        for (int copy = 0; copy < copies && receiver; ++copy)
            send(receiver, answer);
    };
    if (delay > 0)
        QTimer::singleShot(delay, Qt::PreciseTimer, this, sendCopies);
    else
        sendCopies();
}
