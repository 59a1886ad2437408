// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QWebSocketServer>

#include "simulator/ArtworkServer.h"
#include "simulator/Catalogue.h"
#include "simulator/ConnectionSorter.h"
#include "simulator/Playback.h"
#include "simulator/PlaylistShelf.h"
#include "simulator/RpcMethods.h"
#include "simulator/RpcTable.h"
#include "simulator/ServerFaults.h"
#include "simulator/Tracklist.h"

class QWebSocket;

/// One request as a client sent it.
struct ReceivedRequest
{
    QString method;
    QJsonValue id;         ///< as it stood, text or number
    QJsonValue parameters; ///< undefined when there were none
};

/**
 * A Mopidy server on 127.0.0.1: JSON-RPC over the WebSocket at "/mopidy/ws", and on the same port the
 * pictures that it names. It plays in time, but makes no sound.
 *
 * Never blocks; everything happens in the event loop of the thread it lives on. It owns all its parts and
 * ends its connections when it is destroyed. Drawing covers needs a QGuiApplication.
 */
class MusicServerSimulator final : public QObject
{
    Q_OBJECT

public:
    /// Serves the music of `catalogue`, with an empty queue and no playlists. Does not listen yet.
    explicit MusicServerSimulator(const Catalogue &catalogue = Catalogue(), QObject *parent = nullptr);
    ~MusicServerSimulator() override;

    /// Starts to listen; port 0 lets the system choose. False when the port cannot be had: see errorString().
    bool listen(quint16 port = 0) { return m_door.listen(port); }
    void stopListening() { m_door.close(); } ///< open sockets stay; new ones are refused by the system
    bool listenAgain();                      ///< on the port it had before
    QString errorString() const { return m_door.errorString(); }
    QString host() const; ///< "127.0.0.1"
    quint16 port() const { return m_door.port(); }

    const Catalogue &catalogue() const { return m_catalogue; }

    // The server's own side, for whoever plays a person at it. What they do reaches all clients as events.
    Tracklist *tracklist() { return &m_tracklist; }
    const Tracklist *tracklist() const { return &m_tracklist; }
    Playback *playback() { return &m_playback; }
    PlaylistShelf *playlists() { return &m_playlists; }
    ArtworkServer *artwork() { return &m_artwork; }

    /// Adds methods or replaces some.
    RpcTable &methods() { return m_methods; }

    /// What "core.get_uri_schemes" answers.
    void setUriSchemes(const QStringList &schemes) { m_uriSchemes = schemes; }

    /// RemoveForm::Criteria at the start, as today's servers have it.
    void setRemoveForm(RemoveForm form);

    /// Sends an event to every client; `fields` without the name. What a request causes waits for its reply.
    void sendEvent(const QString &name, const QJsonObject &fields = {});

    /// Sends any text to every client.
    void sendText(const QString &text);

    ServerFaults &faults() { return m_faults; }

    /// Ends every WebSocket now, without a closing handshake.
    void dropAll();

    // The record of requests, in order of arrival over all clients.
    const QList<ReceivedRequest> &requests() const { return m_requests; }
    QStringList requestedMethods() const;
    int requestCount(const QString &method) const;
    void clearRequests() { m_requests.clear(); }

    int liveSockets() const { return m_sockets.size(); }
    int acceptedSockets() const { return m_acceptedSockets; } ///< ever

Q_SIGNALS:
    void requestReceived(const QString &method); ///< emitted before it is carried out
    // Texts as they pass, to and from any client.
    void textReceived(const QString &text);
    void textSent(const QString &text);
    void clientConnected();
    void clientDisconnected();

private:
    void connectParts();
    void acceptSockets();
    void forget(QWebSocket *socket);
    void send(QWebSocket *socket, const QString &text);
    void handleText(QWebSocket *socket, const QString &text);
    void carryOut(QWebSocket *socket, const ReceivedRequest &request);
    RpcReply outcome(const ReceivedRequest &request);
    void reply(QWebSocket *socket, const ReceivedRequest &request, const RpcReply &outcome);
    QString text(const QString &name, const QJsonObject &message);

    Catalogue m_catalogue;
    Tracklist m_tracklist;
    Playback m_playback;
    PlaylistShelf m_playlists;
    ArtworkServer m_artwork;
    RpcTable m_methods;
    QStringList m_uriSchemes;
    ServerFaults m_faults;
    ConnectionSorter m_door;
    QWebSocketServer m_webSockets;
    QList<QWebSocket *> m_sockets;
    QList<ReceivedRequest> m_requests;
    int m_acceptedSockets = 0;
    bool m_holdsEvents = false;
    QStringList m_heldEvents;
};
