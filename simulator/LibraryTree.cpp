// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/LibraryTree.h"

#include "simulator/MopidyModels.h"

namespace {

using MopidyModels::ref;

const QString localRoot = QStringLiteral("local:directory");
const QString albumsDirectory = QStringLiteral("local:directory?type=album");
const QString artistsDirectory = QStringLiteral("local:directory?type=artist");
const QString tracksDirectory = QStringLiteral("local:directory?type=track");
const QString podcastRoot = QStringLiteral("podcast:");
const QString radioRoot = QStringLiteral("tunein:root");

struct Directory
{
    QString parent;
    QString uri;
    QString name;
};

const QVector<Directory> directories{
    {QString(), localRoot, QStringLiteral("Local media")},
    {QString(), podcastRoot, QStringLiteral("Podcasts")},
    {QString(), radioRoot, QStringLiteral("TuneIn")},
    {localRoot, albumsDirectory, QStringLiteral("Albums")},
    {localRoot, artistsDirectory, QStringLiteral("Artists")},
    {localRoot, tracksDirectory, QStringLiteral("Tracks")},
};

QJsonObject trackRef(const CatalogueTrack &track)
{
    return ref(QStringLiteral("track"), track.uri, track.name);
}

QJsonObject albumRef(const CatalogueTrack &track)
{
    return ref(QStringLiteral("album"), track.albumUri, track.albumName);
}

QJsonArray tracks(const Catalogue &catalogue, int from, int to)
{
    QJsonArray rows;
    for (int position = from; position < qMin(to, catalogue.trackCount()); ++position)
        rows << trackRef(catalogue.track(position));
    return rows;
}

QJsonArray albums(const Catalogue &catalogue, int from, int to)
{
    QJsonArray rows;
    for (int position = from; position < qMin(to, catalogue.trackCount());
         position += Catalogue::tracksPerAlbum)
        rows << albumRef(catalogue.track(position));
    return rows;
}

QJsonArray artists(const Catalogue &catalogue)
{
    QJsonArray rows;
    const QVector<CatalogueArtist> all = catalogue.artists();
    for (const CatalogueArtist &artist : all)
        rows << ref(QStringLiteral("artist"), artist.uri, artist.name);
    return rows;
}

// The shows, or the episodes of one.
QJsonArray podcasts(const Catalogue &catalogue, const QString &show)
{
    QJsonArray rows;
    QString last;
    for (int position = 0; position < Catalogue::episodeCount; ++position) {
        const CatalogueTrack episode = catalogue.episode(position);
        if (episode.albumUri == show)
            rows << trackRef(episode);
        else if (show.isEmpty() && episode.albumUri != last)
            rows << albumRef(episode);
        last = episode.albumUri;
    }
    return rows;
}

QJsonArray stations(const Catalogue &catalogue)
{
    QJsonArray rows;
    for (int position = 0; position < Catalogue::stationCount; ++position)
        rows << trackRef(catalogue.station(position));
    return rows;
}

QJsonArray directoriesIn(const QString &uri)
{
    QJsonArray rows;
    for (const Directory &directory : directories) {
        if (directory.parent == uri)
            rows << ref(QStringLiteral("directory"), directory.uri, directory.name);
    }
    return rows;
}

bool isWanted(const QString &scheme, const QStringList &schemes)
{
    return schemes.isEmpty() || schemes.contains(scheme);
}

// The position behind the last track of an artist, whose albums follow one another: the first and the last artist
// of a library may have fewer than the others.
int endOfArtist(const Catalogue &catalogue, int first)
{
    const auto artistAt = [&catalogue](int position) {
        return catalogue.track(position).albumArtists.constFirst().uri;
    };
    const QString artist = artistAt(first);
    int end = first;
    while (end < catalogue.trackCount() && artistAt(end) == artist)
        end += Catalogue::tracksPerAlbum;
    return end;
}

// A model is made for a find alone: most entries of a large library are none.
template<typename Named>
void addIf(QJsonArray &array, QJsonObject (*model)(const Named &), const Named &entry, const QString &name,
           const QString &text, int most)
{
    if (array.size() < most && name.contains(text, Qt::CaseInsensitive))
        array << model(entry);
}

QJsonObject localResult(const Catalogue &catalogue, const QString &text, int most)
{
    QJsonArray tracks;
    QJsonArray albums;
    for (int position = 0; position < catalogue.trackCount(); ++position) {
        if (tracks.size() >= most && albums.size() >= most)
            break;
        const CatalogueTrack track = catalogue.track(position);
        addIf(tracks, &MopidyModels::track, track, track.name, text, most);
        if (position % Catalogue::tracksPerAlbum == 0)
            addIf(albums, &MopidyModels::album, track, track.albumName, text, most);
    }
    QJsonArray artists;
    const QVector<CatalogueArtist> all = catalogue.artists();
    for (const CatalogueArtist &artist : all)
        addIf(artists, &MopidyModels::artist, artist, artist.name, text, most);
    return MopidyModels::searchResult(QStringLiteral("local:search"), tracks, albums, artists);
}

QJsonObject radioResult(const Catalogue &catalogue, const QString &text, int most)
{
    QJsonArray tracks;
    for (int position = 0; position < Catalogue::stationCount; ++position) {
        const CatalogueTrack station = catalogue.station(position);
        addIf(tracks, &MopidyModels::track, station, station.name, text, most);
    }
    return MopidyModels::searchResult(QStringLiteral("tunein:search"), tracks, {}, {});
}

} // namespace

QJsonArray LibraryTree::browse(const Catalogue &catalogue, const QString &uri)
{
    if (uri == albumsDirectory)
        return albums(catalogue, 0, catalogue.trackCount());
    if (uri == artistsDirectory)
        return artists(catalogue);
    if (uri == tracksDirectory)
        return tracks(catalogue, 0, catalogue.trackCount());
    if (uri == podcastRoot)
        return podcasts(catalogue, QString());
    if (uri.startsWith(QLatin1String("podcast+")))
        return podcasts(catalogue, uri);
    if (uri == radioRoot)
        return stations(catalogue);
    const int ofAlbum = catalogue.firstTrackOfAlbum(uri);
    if (ofAlbum >= 0)
        return tracks(catalogue, ofAlbum, ofAlbum + Catalogue::tracksPerAlbum);
    const int ofArtist = catalogue.firstTrackOfArtist(uri);
    if (ofArtist >= 0)
        return albums(catalogue, ofArtist, endOfArtist(catalogue, ofArtist));
    return directoriesIn(uri);
}

QVector<CatalogueTrack> LibraryTree::tracksOf(const Catalogue &catalogue, const QString &uri)
{
    if (const std::optional<CatalogueTrack> track = catalogue.find(uri))
        return {*track};
    const int ofAlbum = catalogue.firstTrackOfAlbum(uri);
    const int ofArtist = catalogue.firstTrackOfArtist(uri);
    const int first = qMax(ofAlbum, ofArtist);
    if (first < 0)
        return {};
    const int end = ofAlbum >= 0 ? first + Catalogue::tracksPerAlbum : endOfArtist(catalogue, first);
    QVector<CatalogueTrack> found;
    for (int position = first; position < qMin(end, catalogue.trackCount()); ++position)
        found << catalogue.track(position);
    return found;
}

QJsonArray LibraryTree::lookup(const Catalogue &catalogue, const QString &uri)
{
    QJsonArray found;
    const QVector<CatalogueTrack> tracks = tracksOf(catalogue, uri);
    for (const CatalogueTrack &track : tracks)
        found << MopidyModels::track(track);
    return found;
}

QJsonArray LibraryTree::search(const Catalogue &catalogue, const QString &text, const QStringList &schemes,
                               int most)
{
    QJsonArray results;
    if (isWanted(QStringLiteral("local:"), schemes))
        results << localResult(catalogue, text, most);
    if (isWanted(QStringLiteral("tunein:"), schemes))
        results << radioResult(catalogue, text, most);
    return results;
}
