// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/LibraryRows.h"

#include "navigation/SectionItems.h"
#include "player/Album.h"
#include "player/JsonReader.h"
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

struct Entry
{
    QString uri;
    QString name;
    QString type;
};

PlayerItem *rowFrom(const Entry &entry, const QString &type, Make make)
{
    PlayerItem *item = make();
    item->setUri(entry.uri);
    item->setName(entry.name);
    item->setType(type);
    return item;
}

Entry entryFrom(const QJsonValue &value)
{
    // As a CBOR map, which is how Qt keeps JSON objects.
    const QCborMap entry = QCborMap::fromJsonObject(value.toObject());
    return {entry.value(QLatin1String("uri")).toString(), entry.value(QLatin1String("name")).toString(),
            entry.value(QLatin1String("type")).toString()};
}

using MakerFor = Make (*)(const QString &type);

/// Puts entries into the sections of their types, as they come.
class Sorter final
{
public:
    explicit Sorter(MakerFor makerFor) : m_makerFor(makerFor) { }

    void add(const Entry &entry)
    {
        if (!m_section || entry.type != m_type)
            choose(entry.type);
        // The section's own text, so that all rows share one.
        if (m_make)
            m_section->append(rowFrom(entry, m_type, m_make));
    }

    LibraryRows rows;

private:
    void choose(const QString &type)
    {
        auto section = rows.sections.find(type);
        if (section == rows.sections.end()) {
            rows.types.append(type);
            section = rows.sections.insert(type, new SectionItems);
        }
        m_section = section.value();
        m_type = section.key();
        m_make = m_makerFor(type);
    }

    MakerFor m_makerFor;
    SectionItems *m_section = nullptr; // of the entry before
    QString m_type;
    Make m_make = nullptr;
};

LibraryRows rowsFrom(const QJsonArray &entries, MakerFor makerFor)
{
    Sorter sorter(makerFor);
    for (const QJsonValue &value : entries)
        sorter.add(entryFrom(value));
    return sorter.rows;
}

std::optional<LibraryRows> rowsFrom(const JsonText &answer, MakerFor makerFor)
{
    JsonReader reader(answer);
    Sorter sorter(makerFor);
    reader.enterArray();
    while (reader.nextElement()) {
        QString texts[3];
        if (reader.readTexts({QLatin1String("uri", 3), QLatin1String("name", 4), QLatin1String("type", 4)},
                             texts))
            sorter.add({texts[0], texts[1], texts[2]});
    }
    if (reader.isComplete())
        return sorter.rows;
    for (SectionItems *section : qAsConst(sorter.rows.sections))
        section->release();
    return std::nullopt;
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
        section->append(rowFrom(entryFrom(value), type, makerOf(type)));
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

std::optional<LibraryRows> LibraryRows::fromDirectory(const JsonText &answer)
{
    return rowsFrom(answer, makerOf);
}

std::optional<LibraryRows> LibraryRows::fromPlaylist(const JsonText &answer)
{
    return rowsFrom(answer, trackMakerOf);
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
