// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/PlayerItem.h"

#include <QStringList>

/// What a server's answer says of one track, before it is an object that QML can bind to.
struct SongFields
{
    QString uri;
    QString name;
    QString albumUri;
    QString album;
    QStringList artistsUri;
    QStringList artists;
    QString artistsString;
};

/**
 * One track: in the queue, in a list, or playing. Lifetime and thread as for PlayerItem.
 */
class Song : public PlayerItem
{
    Q_OBJECT
    Q_PROPERTY(int duration READ duration WRITE setDuration NOTIFY durationChanged)
    Q_PROPERTY(int currTime READ currTime WRITE setCurrTime NOTIFY currTimeChanged)
    Q_PROPERTY(QString albumUri READ albumUri WRITE setAlbumUri NOTIFY albumUriChanged)
    Q_PROPERTY(QString album READ album WRITE setAlbum NOTIFY albumChanged)
    Q_PROPERTY(QStringList artistsUri READ artistsUri WRITE setArtistsUri NOTIFY artistsUriChanged)
    Q_PROPERTY(QStringList artists READ artists WRITE setArtists NOTIFY artistsChanged)
    Q_PROPERTY(QString artistsString READ artistsString WRITE setArtistsString NOTIFY artistsStringChanged)

public:
    explicit Song(QObject *parent = nullptr);
    /// A track as the server tells it; no signal is emitted for what it begins with.
    explicit Song(SongFields &&fields, QObject *parent = nullptr);

    /// Length in whole seconds, 0 when unknown.
    int duration() const { return m_duration; }
    void setDuration(int duration);
    /// Position in whole seconds, 0 by default; kept on a player's current song alone.
    int currTime() const { return m_currTime; }
    void setCurrTime(int currTime);
    /// Key of the album, "" by default.
    QString albumUri() const { return m_albumUri; }
    void setAlbumUri(const QString &albumUri);
    /// Text shown as album, "" by default: its name or, for podcasts, its comment.
    QString album() const { return m_album; }
    void setAlbum(const QString &album);
    /// Keys of the artists. Not parallel to artists(): an artist may lack either.
    QStringList artistsUri() const { return m_artistsUri; }
    void setArtistsUri(const QStringList &artistsUri);
    /// Names of the artists.
    QStringList artists() const { return m_artists; }
    void setArtists(const QStringList &artists);
    /// The names joined with ", ".
    QString artistsString() const { return m_artistsString; }
    void setArtistsString(const QString &artistsString);

Q_SIGNALS:
    void durationChanged();
    void currTimeChanged();
    void albumUriChanged();
    void albumChanged();
    void artistsUriChanged();
    void artistsChanged();
    void artistsStringChanged();

private:
    int m_duration = 0;
    int m_currTime = 0;
    QString m_albumUri;
    QString m_album;
    QStringList m_artistsUri;
    QStringList m_artists;
    QString m_artistsString;
};
