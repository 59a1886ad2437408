// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/LibraryRows.h"

#include "navigation/SectionItems.h"
#include "player/Album.h"
#include "player/Song.h"

#include <QCborMap>
#include <QJsonArray>
#include <QJsonObject>

namespace {

PlayerItem *newItem()
{
    return new PlayerItem;
}

PlayerItem *newSong()
{
    return new Song;
}

PlayerItem *newAlbum()
{
    return new Album;
}

using Make = PlayerItem *(*)();

// What makes a row of that type; null for a type that is no row.
Make makerOf(const QString &type)
{
    static const QHash<QString, Make> makers{
        {QStringLiteral("directory"), newItem}, {QStringLiteral("playlist"), newItem},
        {QStringLiteral("artist"), newItem},    {QStringLiteral("track"), newSong},
        {QStringLiteral("album"), newAlbum},
    };
    return makers.value(type);
}

Make trackMakerOf(const QString &type)
{
    return type == QLatin1String("track") ? newSong : nullptr;
}

PlayerItem *rowFrom(const QCborMap &entry, const QString &type, Make make)
{
    PlayerItem *item = make();
    item->setUri(entry.value(QLatin1String("uri")).toString());
    item->setName(entry.value(QLatin1String("name")).toString());
    item->setType(type);
    return item;
}

// Long lists are read as CBOR maps, which is how Qt keeps JSON objects.
LibraryRows rowsFrom(const QJsonArray &entries, Make (*makerFor)(const QString &))
{
    LibraryRows rows;
    for (const QJsonValue &value : entries) {
        const QCborMap entry = QCborMap::fromJsonObject(value.toObject());
        QString type = entry.value(QLatin1String("type")).toString();
        auto section = rows.sections.find(type);
        if (section == rows.sections.end()) {
            rows.types.append(type);
            section = rows.sections.insert(type, new SectionItems);
        }
        // The key's own text, so that all rows share one.
        if (const Make make = makerFor(type))
            section.value()->append(rowFrom(entry, section.key(), make));
    }
    return rows;
}

struct ResultKind
{
    QLatin1String key; // in an element of the answer
    QLatin1String type;
};

constexpr ResultKind resultKinds[] = {
    {QLatin1String("artists", 7), QLatin1String("artist", 6)},
    {QLatin1String("albums", 6), QLatin1String("album", 5)},
    {QLatin1String("tracks", 6), QLatin1String("track", 5)},
};

SectionItems *sectionFrom(const QJsonArray &results, const QString &type)
{
    auto *section = new SectionItems;
    for (const QJsonValue &value : results)
        section->append(rowFrom(QCborMap::fromJsonObject(value.toObject()), type, makerOf(type)));
    return section;
}

} // namespace

LibraryRows LibraryRows::fromDirectory(const QJsonValue &v)
{
    return rowsFrom(v.toArray(), makerOf);
}

LibraryRows LibraryRows::fromPlaylist(const QJsonValue &v)
{
    return rowsFrom(v.toArray(), trackMakerOf);
}

LibraryRows LibraryRows::fromSearch(const QJsonValue &v)
{
    LibraryRows rows;
    const QJsonArray backends = v.toArray();
    for (const QJsonValue &backend : backends) {
        const QJsonObject results = backend.toObject();
        for (const ResultKind &kind : resultKinds) {
            const auto found = results.constFind(kind.key);
            if (found == results.constEnd())
                continue;
            rows.types.append(kind.type);
            SectionItems *&section = rows.sections[kind.type];
            if (section)
                section->release();
            section = sectionFrom(found.value().toArray(), kind.type);
        }
    }
    return rows;
}

QList<PlayerItem *> LibraryRows::tracksOf(const QJsonValue &v)
{
    const LibraryRows rows = fromPlaylist(v);
    const SectionItems *section = rows.sections.value(QStringLiteral("track"));
    const QList<PlayerItem *> tracks = section ? section->items : QList<PlayerItem *>();
    qDeleteAll(rows.sections);
    return tracks;
}
