// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/JsonText.h"
#include "player/PlayerItem.h"

#include <QCborMap>
#include <QStringList>

class JsonReader;

/// Album and artists of a track.
struct SongDetails
{
    QString albumUri;
    QString album;
    QStringList artistsUri;
    QStringList artists;
    QString artistsString;

    /// Shares what is equal in `other`: songs of one album mostly come one behind the other.
    void share(const SongDetails &other);
};

/**
 * One track: in the queue, in a list, or playing. Lifetime and thread as for PlayerItem.
 *
 * A song that is made from the text of a server's track reads its album and artists when somebody asks for them, or when
 * complete() is called: of a long queue, few rows are ever looked at before the next one replaces it.
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
    /// A track as the server tells it, without a parent; no signal is emitted for what it begins with.
    explicit Song(const QCborMap &track);
    /// The same from the text of a track that comes next, which the song shares until it is complete. Null when the
    /// reader fails on it.
    static Song *read(JsonReader *reader);
    /// Reads what is still unread, and lets go of the server's answer.
    void complete() const;
    /// Album and artists at once, as the five properties below.
    const SongDetails &details() const;
    void setDetails(const SongDetails &details);
    /// Shares what is equal in those of `other`. Both are complete() then.
    void shareDetails(const Song &other);

    /// Length in whole seconds, 0 when unknown.
    int duration() const { return m_duration; }
    void setDuration(int duration);
    /// Position in whole seconds, 0 by default; kept on a player's current song alone.
    int currTime() const { return m_currTime; }
    void setCurrTime(int currTime);
    /// Key of the album, "" by default.
    QString albumUri() const { return details().albumUri; }
    void setAlbumUri(const QString &albumUri);
    /// What is shown as album, "" by default. A podcast shows what its album says about itself.
    QString album() const { return details().album; }
    void setAlbum(const QString &album);
    /// Keys of the artists. Not parallel to artists(): an artist may lack either.
    QStringList artistsUri() const { return details().artistsUri; }
    void setArtistsUri(const QStringList &artistsUri);
    /// Names of the artists.
    QStringList artists() const { return details().artists; }
    void setArtists(const QStringList &artists);
    /// The names joined with ", ".
    QString artistsString() const { return details().artistsString; }
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
    Song(QString &&uri, QString &&name, const JsonText &unread);

    int m_duration = 0;
    int m_currTime = 0;
    mutable SongDetails m_details; // to be read through details(), written behind complete()
    mutable JsonText m_unread;     // the track, until its album and artists have been read
};
