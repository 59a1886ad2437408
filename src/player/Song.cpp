// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/Song.h"

#include "player/JsonReader.h"
#include "player/TrackParser.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

template<typename Value>
void shareEqual(Value *ours, const Value &other)
{
    if (*ours == other)
        *ours = other;
}

} // namespace

void SongDetails::share(const SongDetails &other)
{
    shareEqual(&albumUri, other.albumUri);
    shareEqual(&album, other.album);
    shareEqual(&artistsUri, other.artistsUri);
    shareEqual(&artists, other.artists);
    shareEqual(&artistsString, other.artistsString);
}

Song::Song(QObject *parent) : PlayerItem(parent) { }

Song::Song(const QCborMap &track)
    : PlayerItem(track.value(QLatin1String("uri")).toString(), track.value(QLatin1String("name")).toString()),
      m_details(TrackParser::detailsOf(uri(), track))
{
}

Song::Song(QString &&uri, QString &&name, const JsonText &unread)
    : PlayerItem(std::move(uri), std::move(name)), m_unread(unread)
{
}

Song *Song::read(JsonReader *reader)
{
    const int begin = reader->position();
    QString texts[2];
    if (!reader->readTexts({QLatin1String("uri", 3), QLatin1String("name", 4)}, texts))
        return nullptr;
    return new Song(std::move(texts[0]), std::move(texts[1]), reader->since(begin));
}

void Song::complete() const
{
    if (m_unread.isEmpty())
        return;
    const QJsonObject track = QJsonDocument::fromJson(m_unread.toUtf8()).object();
    m_details = TrackParser::detailsOf(uri(), QCborMap::fromJsonObject(track));
    m_unread = JsonText();
}

const SongDetails &Song::details() const
{
    complete();
    return m_details;
}

void Song::setDetails(const SongDetails &details)
{
    setAlbumUri(details.albumUri);
    setAlbum(details.album);
    setArtistsUri(details.artistsUri);
    setArtists(details.artists);
    setArtistsString(details.artistsString);
}

void Song::shareDetails(const Song &other)
{
    complete();
    m_details.share(other.details());
}

void Song::setDuration(int duration)
{
    m_duration = duration;
    Q_EMIT durationChanged();
}

void Song::setCurrTime(int currTime)
{
    m_currTime = currTime;
    Q_EMIT currTimeChanged();
}

void Song::setAlbumUri(const QString &albumUri)
{
    complete();
    m_details.albumUri = albumUri;
    Q_EMIT albumUriChanged();
}

void Song::setAlbum(const QString &album)
{
    complete();
    m_details.album = album;
    Q_EMIT albumChanged();
}

void Song::setArtistsUri(const QStringList &artistsUri)
{
    complete();
    m_details.artistsUri = artistsUri;
    Q_EMIT artistsUriChanged();
}

void Song::setArtists(const QStringList &artists)
{
    complete();
    m_details.artists = artists;
    Q_EMIT artistsChanged();
}

void Song::setArtistsString(const QString &artistsString)
{
    complete();
    m_details.artistsString = artistsString;
    Q_EMIT artistsStringChanged();
}
