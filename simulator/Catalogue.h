// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>
#include <QVector>

#include <optional>

/// An artist as the music server describes one.
struct CatalogueArtist
{
    QString uri;
    QString name;
};

/// Anything that can be played: a track of an album, an episode of a podcast, a radio station.
struct CatalogueTrack
{
    QString uri;
    QString name;
    int lengthMs = -1; ///< -1 when unknown, as for a station
    int number = 0;    ///< place on the album, 0 when it has none
    int year = 0;      ///< 0 when unknown
    QString genre;
    QString albumUri;
    QString albumName;
    QString albumComment; ///< only podcasts have one
    QVector<CatalogueArtist> artists;
    QVector<CatalogueArtist> albumArtists;
    quint32 coverSeed = 0; ///< names the cover, 0 for none
};

/**
 * A music library that is computed and not stored: each entry follows from the catalogue's seed and its
 * position, so a library of 100,000 tracks costs nothing until somebody asks. A small value, callable on any
 * thread.
 *
 * The uris: "local:track:<artist>/<album>/<position>-<title>.flac", "local:album:<number>",
 * "local:artist:<number>", "podcast+https://podcasts.example/<show>.xml#<position>",
 * "tunein:station:s<number>".
 */
class Catalogue final
{
public:
    static constexpr int tracksPerAlbum = 10;
    static constexpr int albumsPerArtist = 3;
    static constexpr int episodeCount = 6;
    static constexpr int stationCount = 6;

    /// Catalogues of different seeds (1 to 40000) have no entry in common. `trackCount` is 1 to 1,000,000.
    explicit Catalogue(quint32 seed = 1, int trackCount = 240);

    int trackCount() const { return m_trackCount; }
    int albumCount() const { return (m_trackCount + tracksPerAlbum - 1) / tracksPerAlbum; }

    // Positions count from 0 and must be in range.
    CatalogueTrack track(int position) const;
    CatalogueTrack episode(int position) const;
    CatalogueTrack station(int position) const;

    /// The artists of the library, each with `albumsPerArtist` albums but for the last, which may have fewer.
    QVector<CatalogueArtist> artists() const;
    /// Position of the first track of an album or of an artist, by its uri; -1 for any other text. Its tracks
    /// follow one another, an artist's album by album.
    int firstTrackOfAlbum(const QString &uri) const;
    int firstTrackOfArtist(const QString &uri) const;

    /// The playable entry of this uri; nothing for any other text.
    std::optional<CatalogueTrack> find(const QString &uri) const;

    /// The cover of any uri of this library, albums included; 0 when it has none.
    quint32 coverSeed(const QString &uri) const;

    // What a cover with this seed says.
    static QString coverTitle(quint32 coverSeed);
    static QString coverArtist(quint32 coverSeed);

private:
    quint32 albumNumber(int album) const { return m_seed * 100000 + quint32(album); }

    quint32 m_seed;
    int m_trackCount;
};
