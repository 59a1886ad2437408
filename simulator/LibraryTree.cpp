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

void addIf(QJsonArray &array, const QJsonObject &object, const QString &text, int most)
{
    const QString name = object.value(QStringLiteral("name")).toString();
    if (array.size() < most && name.contains(text, Qt::CaseInsensitive))
        array << object;
}

QJsonObject localResult(const Catalogue &catalogue, const QString &text, int most)
{
    QJsonArray tracks;
    QJsonArray albums;
    for (int position = 0; position < catalogue.trackCount(); ++position) {
        const CatalogueTrack track = catalogue.track(position);
        addIf(tracks, MopidyModels::track(track), text, most);
        if (position % Catalogue::tracksPerAlbum == 0)
            addIf(albums, MopidyModels::album(track), text, most);
    }
    QJsonArray artists;
    const QVector<CatalogueArtist> all = catalogue.artists();
    for (const CatalogueArtist &artist : all)
        addIf(artists, MopidyModels::artist(artist), text, most);
    return MopidyModels::searchResult(QStringLiteral("local:search"), tracks, albums, artists);
}

QJsonObject radioResult(const Catalogue &catalogue, const QString &text, int most)
{
    QJsonArray tracks;
    for (int position = 0; position < Catalogue::stationCount; ++position)
        addIf(tracks, MopidyModels::track(catalogue.station(position)), text, most);
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
        return albums(catalogue, ofArtist, ofArtist + Catalogue::albumsPerArtist * Catalogue::tracksPerAlbum);
    return directoriesIn(uri);
}

QJsonArray LibraryTree::lookup(const Catalogue &catalogue, const QString &uri)
{
    QJsonArray found;
    if (const std::optional<CatalogueTrack> track = catalogue.find(uri)) {
        found << MopidyModels::track(*track);
        return found;
    }
    const int first = catalogue.firstTrackOfAlbum(uri);
    for (int position = first;
         first >= 0 && position < qMin(first + Catalogue::tracksPerAlbum, catalogue.trackCount()); ++position)
        found << MopidyModels::track(catalogue.track(position));
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
