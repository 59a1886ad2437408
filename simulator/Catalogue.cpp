// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/Catalogue.h"

#include "simulator/Words.h"

namespace {

// The last numbers of a catalogue's range belong to its shows; no library is large enough to meet them.
constexpr quint32 firstShow = 99990;

const QString trackPrefix = QStringLiteral("local:track:");
const QString artistPrefix = QStringLiteral("local:artist:");
const QString albumPrefix = QStringLiteral("local:album:");
const QString podcastPrefix = QStringLiteral("podcast+");
const QString stationPrefix = QStringLiteral("tunein:station:s");

quint32 artistOf(quint32 albumNumber)
{
    return albumNumber / Catalogue::albumsPerArtist;
}

CatalogueArtist artist(quint32 number)
{
    return {artistPrefix + QString::number(number), Words::artistName(number)};
}

int between(quint64 spread, int least, int most)
{
    return least + int(spread % quint64(most - least + 1));
}

QString trackUri(const CatalogueTrack &track, int position)
{
    return trackPrefix + Words::slug(track.artists.first().name) + QLatin1Char('/')
        + Words::slug(track.albumName) + QLatin1Char('/') + QString::number(position) + QLatin1Char('-')
        + Words::slug(track.name) + QStringLiteral(".flac");
}

// The number that ends or begins a uri's last section; -1 when it is none.
int numberIn(const QString &section)
{
    bool isNumber = false;
    const int number = section.toInt(&isNumber);
    return isNumber ? number : -1;
}

} // namespace

Catalogue::Catalogue(quint32 seed, int trackCount) : m_seed(seed), m_trackCount(trackCount) { }

CatalogueTrack Catalogue::track(int position) const
{
    const quint32 album = albumNumber(position / tracksPerAlbum);
    const quint64 number = quint64(album) * tracksPerAlbum + quint64(position % tracksPerAlbum);
    CatalogueTrack track;
    track.name = Words::trackTitle(number);
    track.lengthMs = between(Words::mix(number, 10), 140000, 330000);
    track.number = position % tracksPerAlbum + 1;
    track.year = between(Words::mix(album, 11), 1962, 2023);
    track.genre = Words::genre(artistOf(album));
    track.albumUri = albumPrefix + QString::number(album);
    track.albumName = Words::albumTitle(album);
    track.artists = {artist(artistOf(album))};
    // Now and then somebody sings along.
    if (Words::mix(number, 12) % 8 == 0)
        track.artists << artist(artistOf(album) + 1);
    track.albumArtists = {artist(artistOf(album))};
    track.coverSeed = album;
    track.uri = trackUri(track, position);
    return track;
}

CatalogueTrack Catalogue::episode(int position) const
{
    const quint32 show = albumNumber(int(firstShow) + position / 3);
    const quint32 number = show * 100 + quint32(position);
    CatalogueTrack track;
    track.name = Words::episodeTitle(number);
    track.lengthMs = between(Words::mix(number, 10), 1500000, 3300000);
    track.genre = QStringLiteral("Podcast");
    track.albumName = Words::albumTitle(show);
    track.albumUri = podcastPrefix
        + QStringLiteral("https://podcasts.example/%1.xml").arg(Words::slug(track.albumName));
    track.albumComment = Words::showComment(show);
    track.albumArtists = {{QString(), Words::artistName(artistOf(show))}};
    track.coverSeed = show;
    track.uri = track.albumUri + QLatin1Char('#') + QString::number(position);
    return track;
}

CatalogueTrack Catalogue::station(int position) const
{
    const quint32 number = m_seed * 100 + quint32(position);
    CatalogueTrack track;
    track.name = Words::stationName(number);
    track.uri = stationPrefix + QString::number(number);
    track.albumName = track.name;
    return track;
}

QVector<CatalogueArtist> Catalogue::artists() const
{
    QVector<CatalogueArtist> artists;
    const quint32 last = artistOf(albumNumber(albumCount() - 1));
    for (quint32 number = artistOf(albumNumber(0)); number <= last; ++number)
        artists << artist(number);
    return artists;
}

int Catalogue::firstTrackOfAlbum(const QString &uri) const
{
    if (!uri.startsWith(albumPrefix))
        return -1;
    const int album = numberIn(uri.mid(albumPrefix.size())) - int(albumNumber(0));
    return album >= 0 && album < albumCount() ? album * tracksPerAlbum : -1;
}

int Catalogue::firstTrackOfArtist(const QString &uri) const
{
    if (!uri.startsWith(artistPrefix))
        return -1;
    const int number = numberIn(uri.mid(artistPrefix.size()));
    // The first artist of the library may have begun in the range below.
    const int album = qMax(0, number * albumsPerArtist - int(albumNumber(0)));
    const bool isOurs = number >= 0 && album < albumCount()
        && artistOf(albumNumber(album)) == quint32(number);
    return isOurs ? album * tracksPerAlbum : -1;
}

std::optional<CatalogueTrack> Catalogue::find(const QString &uri) const
{
    std::optional<CatalogueTrack> found;
    if (uri.startsWith(trackPrefix)) {
        const int position = numberIn(uri.section(QLatin1Char('/'), -1).section(QLatin1Char('-'), 0, 0));
        if (position >= 0 && position < m_trackCount)
            found = track(position);
    } else if (uri.startsWith(podcastPrefix)) {
        const int position = numberIn(uri.section(QLatin1Char('#'), 1));
        if (position >= 0 && position < episodeCount)
            found = episode(position);
    } else if (uri.startsWith(stationPrefix)) {
        const int position = numberIn(uri.mid(stationPrefix.size())) - int(m_seed * 100);
        if (position >= 0 && position < stationCount)
            found = station(position);
    }
    // A uri that merely looks alike, or one of another catalogue.
    if (found && found->uri != uri)
        found.reset();
    return found;
}

quint32 Catalogue::coverSeed(const QString &uri) const
{
    const int first = firstTrackOfAlbum(uri);
    if (first >= 0)
        return track(first).coverSeed;
    const std::optional<CatalogueTrack> track = find(uri);
    return track ? track->coverSeed : 0;
}

QString Catalogue::coverTitle(quint32 coverSeed)
{
    return Words::albumTitle(coverSeed);
}

QString Catalogue::coverArtist(quint32 coverSeed)
{
    return Words::artistName(artistOf(coverSeed));
}
