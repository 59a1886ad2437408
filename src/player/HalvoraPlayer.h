// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/JsonText.h"
#include "player/LongReplyReader.h"
#include "player/PlayerItem.h"
#include "player/Song.h"

#include <QAbstractSocket>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QMap>
#include <QPointer>
#include <QQmlListProperty>
#include <QStringList>
#include <QTimer>

#include <map>
#include <memory>

class QWebSocket;
class SocketHandler;

/**
 * The client of one Mopidy music server: a JSON-RPC connection over a WebSocket, and a mirror of the server's
 * playback, queue, playlists and URI schemes for QML to bind to.
 *
 * Made by Halvora for each source with a server, without a parent, in the GUI thread, where everything here runs;
 * dropped when its Halvora goes. The mirror follows the server's answers and events alone: no action changes it.
 * Setters store and emit, changed or not; what has a setter below is written by the mirror or by Halvora.
 *
 * Replies: an action that takes `rec` and `hdl` has the reply's "result" delivered to the invokable method of that
 * name, with (int responseId, QJsonValue) if the name begins with "browse" and with (QJsonValue) otherwise; an
 * error, which has no result, delivers an undefined value. A receiver that is a LongReplyReader gets long results
 * unread. `hdl` must be a literal. A receiver that is gone by then, or a reply that never comes, is no fault: nothing
 * happens. Actions on a stopped player send nothing, and what is sent while the connection is down is lost.
 */
class HalvoraPlayer : public QObject, public LongReplyReader
{
    Q_OBJECT
    Q_PROPERTY(int index READ index WRITE setIndex NOTIFY indexChanged)
    Q_PROPERTY(int sourceRef READ sourceRef WRITE setSourceRef NOTIFY sourceRefChanged)
    Q_PROPERTY(QString ipAddress READ ipAddress WRITE setIpAddress NOTIFY ipAddressChanged)
    Q_PROPERTY(QString port READ port WRITE setPort NOTIFY portChanged)
    Q_PROPERTY(int playPause READ playPause WRITE setPlayPause NOTIFY playPauseChanged)
    Q_PROPERTY(bool shuffle READ shuffle WRITE setShuffle NOTIFY shuffleChanged)
    Q_PROPERTY(bool repeat READ repeat WRITE setRepeat NOTIFY repeatChanged)
    Q_PROPERTY(Song *currentSong READ currentSong WRITE setCurrentSong NOTIFY currentSongChanged)
    Q_PROPERTY(int currentTlid READ currentTlid WRITE setCurrentTlid NOTIFY currentTlidChanged)
    Q_PROPERTY(bool airPlay READ airPlay WRITE setAirPlay NOTIFY airPlayChanged)
    Q_PROPERTY(QString airPlayTrack READ airPlayTrack WRITE setAirPlayTrack NOTIFY airPlayTrackChanged)
    Q_PROPERTY(QString airPlayAlbum READ airPlayAlbum WRITE setAirPlayAlbum NOTIFY airPlayAlbumChanged)
    Q_PROPERTY(QString airPlayArtist READ airPlayArtist WRITE setAirPlayArtist NOTIFY airPlayArtistChanged)
    Q_PROPERTY(QString airPlayImage READ airPlayImage WRITE setAirPlayImage NOTIFY airPlayImageChanged)
    Q_PROPERTY(QQmlListProperty<Song> queue READ queue NOTIFY queueChanged)
    Q_PROPERTY(QList<int> queueTlid READ queueTlid NOTIFY queueTlidChanged)
    Q_PROPERTY(QQmlListProperty<PlayerItem> playlists READ playlists NOTIFY playlistsChanged)
    Q_PROPERTY(QStringList filters READ filters WRITE setFilters NOTIFY filtersChanged)
    Q_PROPERTY(QStringList filterTitles READ filterTitles WRITE setFilterTitles NOTIFY filterTitlesChanged)

public:
    enum PlayState { Stopped = 0, Paused = 1, Playing = 2 };

    explicit HalvoraPlayer(QObject *parent = nullptr);
    ~HalvoraPlayer() override;

    /// A place for QML to note a position, -1 by default; nothing here reads it.
    int index() const { return m_index; }
    void setIndex(int index);
    /// The source behind which the server stands, by the device's number; -1 by default.
    int sourceRef() const { return m_sourceRef; }
    void setSourceRef(int sourceRef);
    /// Host of the server, "" by default. Read at each dial, not checked.
    QString ipAddress() const { return m_ipAddress; }
    void setIpAddress(const QString &ipAddress);
    /// Port of the server as text, "6680" by default. Read at each dial, not checked.
    QString port() const { return m_port; }
    void setPort(const QString &port);

    /// A PlayState, Stopped by default.
    int playPause() const { return m_playPause; }
    void setPlayPause(int playPause);
    /// Whether the server plays in random order, false by default.
    bool shuffle() const { return m_shuffle; }
    void setShuffle(bool shuffle);
    /// Whether the server repeats, false by default.
    bool repeat() const { return m_repeat; }
    void setRepeat(bool repeat);
    /// The last track known to play; null until the first, and never null again. Each track is a new object.
    Song *currentSong() const { return m_currentSong; }
    void setCurrentSong(Song *currentSong);
    /// Tracklist id of the track that the last playback event named, 0 by default.
    int currentTlid() const { return m_currentTlid; }
    void setCurrentTlid(int currentTlid);

    /// Whether the source is fed by AirPlay just now, false by default; the device says so, not the server.
    bool airPlay() const { return m_airPlay; }
    void setAirPlay(bool airPlay);
    /// What AirPlay plays and the address of its picture; "" by default and whenever AirPlay is off.
    QString airPlayTrack() const { return m_airPlayTrack; }
    void setAirPlayTrack(const QString &airPlayTrack);
    QString airPlayAlbum() const { return m_airPlayAlbum; }
    void setAirPlayAlbum(const QString &airPlayAlbum);
    QString airPlayArtist() const { return m_airPlayArtist; }
    void setAirPlayArtist(const QString &airPlayArtist);
    QString airPlayImage() const { return m_airPlayImage; }
    void setAirPlayImage(const QString &airPlayImage);

    /// The server's tracklist in ascending order of tracklist ids; each answer of the server rebuilds it.
    QQmlListProperty<Song> queue();
    /// The tracklist ids of queue(), position by position. queueChanged() stands for both.
    QList<int> queueTlid() const;
    /// The server's playlists, uri and name, in its order.
    QQmlListProperty<PlayerItem> playlists();
    const QList<PlayerItem *> &playlistItems() const { return m_playlists; }
    /// Position of the playlist with that uri, 0 for an unknown one.
    int playlistPosition(const QString &uri) const { return m_playlistIndex.value(uri); }
    /// What can be searched in: "all" and the schemes of the server's music services, in its order.
    QStringList filters() const { return m_filters; }
    void setFilters(const QStringList &filters);
    /// The display text of each of filters(), "" for a scheme without one.
    QStringList filterTitles() const { return m_filterTitles; }
    void setFilterTitles(const QStringList &filterTitles);

    /// Ends the connection at once and for good: no retry follows until startConnection().
    void stopConnection();

    // Handlers of replies. Each takes the reply's "result", or an undefined value, and treats a value of the
    // wrong type as the empty one.
    Q_INVOKABLE void updateUriSchemes(QJsonValue v);
    Q_INVOKABLE void updatePlaybackStatus(QJsonValue v);
    Q_INVOKABLE void updateTrackInfo(QJsonValue v);
    Q_INVOKABLE void updateTrackImages(QJsonValue v);
    Q_INVOKABLE void updateTrackTime(QJsonValue v);
    Q_INVOKABLE void updateRandom(QJsonValue v);
    Q_INVOKABLE void updateRepeat(QJsonValue v);
    Q_INVOKABLE void updateQueue(QJsonValue v);
    Q_INVOKABLE void updateQueueImages(QJsonValue v);
    Q_INVOKABLE void updatePlaylists(QJsonValue v);
    Q_INVOKABLE void updatePlaylistJson(QJsonValue v);
    Q_INVOKABLE void updatePlaylistJsonFromQueue(QJsonValue v);
    Q_INVOKABLE void updatePlaylistTracks(QJsonValue v);

    /// updateQueue() from the text of the result. False, and nothing is changed, when it is none that JsonReader reads.
    bool updateQueue(const JsonText &result);
    bool readLongReply(const char *handler, int responseId, const JsonText &result) override;

    /// Plays, or goes on when paused.
    Q_INVOKABLE void actionPlay();
    /// Plays the entry of the tracklist with that id.
    Q_INVOKABLE void actionPlayTrack(int tlid);
    Q_INVOKABLE void actionPause();
    Q_INVOKABLE void actionPrevious();
    Q_INVOKABLE void actionNext();
    /// Asks for the inverse of repeat().
    Q_INVOKABLE void actionRepeat();
    /// Asks for the inverse of shuffle().
    Q_INVOKABLE void actionShuffle();
    Q_INVOKABLE void actionClearQueue();
    /// Entries of a directory, of the library's root for an empty `uri`. These three return the request's id.
    Q_INVOKABLE int actionBrowse(QString uri, QObject *rec, const char *hdl);
    Q_INVOKABLE int actionLookup(QStringList uris, QObject *rec, const char *hdl);
    Q_INVOKABLE int actionLookupImages(QStringList uris, QObject *rec, const char *hdl);
    /// Position of the current track in the tracklist. Returns the request's id.
    Q_INVOKABLE int actionPlayIndex(QObject *rec, const char *hdl);
    /// Adds tracks at `position` of the tracklist, at its end for -1, and plays the first if `sendPlay`.
    Q_INVOKABLE void actionPlayAdd(QStringList uris, int position, bool sendPlay);
    /// Reply of an add: plays the first of the added entries.
    Q_INVOKABLE void actionPlayNow(QJsonValue v);
    /// Removes the entry in row `index` of queue(); a row that is not there removes nothing.
    Q_INVOKABLE void actionRemoveTrackFromQueue(int index);
    /// Plays a playlist in place of the queue.
    Q_INVOKABLE void actionOpenPlaylistWithUri(QString uri);
    /// Adds a playlist to the end of the queue.
    Q_INVOKABLE void actionAddPlaylistWithUri(QString uri);
    /// Entries of a playlist. Returns the request's id.
    Q_INVOKABLE int actionBrowsePlaylist(QString uri, QObject *rec, const char *hdl);
    /// Replaces the queue and plays it.
    Q_INVOKABLE void actionResetQueueWithUris(QStringList uris);
    /// Replies that bring the entries of a playlist, to play or to add.
    Q_INVOKABLE void actionPlayList(QJsonValue v);
    Q_INVOKABLE void actionAddList(QJsonValue v);
    /// Makes a playlist, filled with the server's tracklist if `fromQueue`. The name is not checked.
    Q_INVOKABLE void actionCreatePlaylist(QString name, bool fromQueue);
    /// Appends items to a playlist, as they are now. With two calls under way both playlists get the later items.
    Q_INVOKABLE void actionEditPlaylistWithUris(QString playlist, QList<PlayerItem *> songs);
    /// Searches everything, or the one scheme `filter`. The reply carries no id to match it by.
    Q_INVOKABLE void actionSearch(QString text, QString filter, QObject *rec, const char *hdl);
    Q_INVOKABLE void actionRefreshPlaylists();
    /// Name of the playlist with that uri, "" for an unknown one.
    Q_INVOKABLE QString getPlaylistName(QString uri);

Q_SIGNALS:
    void indexChanged();
    void sourceRefChanged();
    void ipAddressChanged();
    void portChanged();
    void playPauseChanged();
    void shuffleChanged();
    void repeatChanged();
    void currentSongChanged();
    void currentSongImageChanged();
    void airPlayChanged();
    void airPlayTrackChanged();
    void airPlayAlbumChanged();
    void airPlayArtistChanged();
    void airPlayImageChanged();
    void queueChanged();
    void queueTlidChanged();
    void currentTlidChanged();
    void playlistsChanged();
    void filtersChanged();
    void filterTitlesChanged();

public Q_SLOTS:
    void socketConnected();
    void socketDisconnected();
    void socketStateChanged(QAbstractSocket::SocketState state);
    void socketMessageReceived(QString message);
    void socketError(QAbstractSocket::SocketError error);
    void refreshTimerTimeout();
    /// Dials the server, ending a running connection first. Replies still awaited are forgotten and ids start
    /// at 0 again; the mirror stays as it is.
    void startConnection();

private:
    struct Event;
    struct Poll;

    // Connection
    void dropSocket();
    void stopTicking();
    int post(const QString &method, QObject *rec = nullptr, const char *hdl = "");
    int post(const QString &method, const QJsonObject &params, QObject *rec = nullptr, const char *hdl = "");
    QJsonObject newRequest(const QString &method);
    SocketHandler *sendRequest(const QJsonObject &request, QObject *rec, const char *hdl);
    bool deliverUnread(const QString &message);
    void deliver(const SocketHandler &record, const QJsonObject &reply);

    // Events
    void eventReceived(const QJsonObject &message);
    void playbackStateChanged(const QJsonObject &message);
    void optionsChanged(const QJsonObject &message);
    void trackPlaybackEvent(const QJsonObject &message);
    void streamTitleChanged(const QJsonObject &message);
    void tracklistChanged(const QJsonObject &message);
    void playlistEvent(const QJsonObject &message);

    // Queue
    using Queue = QMap<int, Song *>;
    void setQueue(const Queue &queue, const QStringList &uris);
    void completeSomeSongs();
    void savePlaylist(QJsonObject playlist, const QJsonArray &tracks);

    QList<PlayerItem *> m_playlists;
    QHash<QString, int> m_playlistIndex;
    int m_index = -1;
    int m_sourceRef = -1;
    int m_nextRequestId = 0;
    int m_refreshCountdown = 0;
    int m_playPause = Stopped;
    int m_currentTlid = 0;
    bool m_shuffle = false;
    bool m_repeat = false;
    bool m_airPlay = false;
    QString m_ipAddress;
    QString m_port = QStringLiteral("6680");
    QString m_airPlayTrack;
    QString m_airPlayAlbum;
    QString m_airPlayArtist;
    QString m_airPlayImage;
    QWebSocket *m_socket = nullptr; // null while stopped
    bool m_live = false;            // whether m_socket has got as far as connected()
    std::map<int, std::unique_ptr<SocketHandler>> m_pendingHandlers;
    QTimer *m_refreshTimer = nullptr; // null while not connected
    QTimer m_dropRetry;
    QTimer m_errorRetry;
    QPointer<Song> m_currentSong;
    QPointer<Song> m_madeSong; // the last one that was made here; anybody may have set another since
    Queue m_queueMap;
    QList<Song *> m_queueSnapshot;
    QTimer m_completion; // runs while songs of the queue are incomplete
    int m_nextToComplete = 0;
    QStringList m_filters;
    QStringList m_filterTitles;
    QJsonArray m_pendingPlaylistItems; // as the server wants them
    QJsonValue m_pendingPlaylistJson;
};
