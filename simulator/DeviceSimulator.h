// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTcpServer>
#include <QTimer>

#include "simulator/DeviceMessages.h"
#include "simulator/DeviceState.h"
#include "simulator/LinkFaults.h"

class DeviceConnection;

/**
 * A Halvora device on 127.0.0.1: accepts control links, answers logins, tells its state, carries out commands
 * and announces what changed to all clients that have joined.
 *
 * Never blocks; everything happens in the event loop of the thread it lives on. It owns its connections and
 * ends them when it is destroyed.
 */
class DeviceSimulator final : public QObject
{
    Q_OBJECT

public:
    /// Starts with DeviceState::demo() and does not listen yet.
    explicit DeviceSimulator(QObject *parent = nullptr);
    ~DeviceSimulator() override;

    /// Starts to listen; port 0 lets the system choose. False when the port cannot be had: see errorString().
    bool listen(quint16 port = 0);

    /// Takes no more connections; the open ones stay. Further ones are refused by the system.
    void stopListening();

    /// Listens again on the port it had before. False as for listen().
    bool listenAgain();

    QString errorString() const { return m_server.errorString(); }
    QString host() const;                   ///< "127.0.0.1"
    quint16 port() const { return m_port; } ///< the last port it listened on, 0 before the first

    const DeviceState &state() const { return m_state; }

    /// Replaces the state without a word to the clients.
    void setState(const DeviceState &state) { m_state = state; }

    /// The faults in force; may be changed at any time.
    LinkFaults &faults() { return m_faults; }

    /// From now on only a login with this name and the digest of this password is accepted. Both empty, as at
    /// the start: every login of a right form is.
    void setCredentials(const QString &userName, const QString &password);

    /// Time between two keep-alive polls in milliseconds, 5000 at the start; 0 or less ends them.
    void setPollInterval(int milliseconds);

    // What a person does at the device itself: changes the state and announces it. An unknown index changes
    // and announces nothing.
    void setVolume(int outputIndex, int volume);
    void setMute(int outputIndex, bool mute);
    void setEqualizer(int outputIndex, int bass, int middle, int treble, int loudness);
    void setRoute(int outputIndex, int sourceIndex); ///< source -1 clears the route
    void setSourceVolume(int sourceIndex, int volume);
    void setAirPlay(int sourceIndex, const AirPlayState &airPlay);
    void setOutputs(const QVector<OutputState> &outputs);
    void setSources(const QVector<SourceState> &sources);
    void setPlaylistEntries(const QVector<PlaylistEntryState> &entries);

    /// Announces anything to the clients that have joined. `fields` start behind the unread field.
    void broadcast(int code, const QStringList &fields = {});

    /// Enciphers any text as one frame for every connection, joined or not.
    void sendPlain(const QString &text);

    /// Sends bytes as they stand to every connection; a frame needs its terminator.
    void sendRaw(const QByteArray &bytes);

    /// Ends every connection now, with a reset.
    void dropAll();

    // The record of what clients sent, in order of arrival over all connections.
    QStringList messages() const;                                 ///< without the client's counter
    QStringList numberedMessages() const { return m_received; }   ///< with it: "0|CONNECT|..."
    QList<QByteArray> receivedFrames() const { return m_frames; } ///< enciphered, without terminators
    void clearReceived();

    int liveConnections() const { return m_connections.size(); }
    int joinedConnections() const;
    int acceptedConnections() const { return m_accepted; } ///< ever, also those that are gone
    int unansweredPolls() const;                           ///< of the client that is furthest behind

Q_SIGNALS:
    /// A message was deciphered; without the client's counter. Emitted before the device reacts to it.
    void messageReceived(const QString &message);
    void messageSent(const QString &message); ///< to one client, before it was enciphered
    void clientJoined();
    void clientDisconnected();

    /// The playlists live on the music servers: connect these directly to whatever follows them, as the
    /// notice of the change goes out right after.
    void playlistRenameRequested(const QString &uri, const QString &newName);
    void playlistDeleteRequested(const QString &uri);

    /// A command or a person changed the state.
    void stateChanged();

private:
    void acceptConnections();
    void forget(DeviceConnection *connection);
    void handleMessage(DeviceConnection *connection, const QString &numbered);
    void handleLogin(DeviceConnection *connection, const QStringList &fields);
    void handleCommand(DeviceConnection *connection, const QStringList &fields);
    bool isAccepted(const QStringList &fields) const;
    void poll();
    void announce(const QVector<DeviceMessages::Broad> &broads);
    void runCommand(int code, const QStringList &arguments);

    QTcpServer m_server;
    quint16 m_port = 0;
    QTimer m_pollTimer;
    DeviceState m_state = DeviceState::demo();
    LinkFaults m_faults;
    QString m_userName;
    QString m_passwordDigest;
    QList<DeviceConnection *> m_connections;
    QStringList m_received;
    QList<QByteArray> m_frames;
    int m_accepted = 0;
};
