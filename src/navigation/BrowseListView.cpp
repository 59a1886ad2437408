// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/BrowseListView.h"

#include "images/BackupImageDownloader.h"
#include "images/ImageDownloader.h"
#include "navigation/BrowseReference.h"
#include "navigation/QmlItem.h"
#include "navigation/RowReach.h"
#include "player/Album.h"
#include "player/ListProperty.h"
#include "player/PictureTables.h"
#include "player/TrackParser.h"

#include <QCborArray>
#include <QJsonObject>

#include <limits>

namespace {

// Such rows show their name alone.
bool isContainer(const QString &type)
{
    return type == QLatin1String("directory") || type == QLatin1String("playlist");
}

bool lacksDetails(const PlayerItem *item)
{
    if (const auto *song = qobject_cast<const Song *>(item))
        return song->album().isEmpty() || song->artistsString().isEmpty();
    const auto *album = qobject_cast<const Album *>(item);
    return album && album->artistsString().isEmpty();
}

// The fallback finds pictures by album and artist.
bool canFallBack(const PlayerItem *item)
{
    if (const auto *song = qobject_cast<const Song *>(item))
        return !song->album().isEmpty() || !song->artistsString().isEmpty();
    const auto *album = qobject_cast<const Album *>(item);
    return album && !album->artistsString().isEmpty();
}

// The row that an entry of a lookup's answer speaks of. That of an album may be one of its tracks.
QString rowUri(const QString &type, const QCborMap &entry)
{
    const QString model = entry.value(QLatin1String("__model__")).toString().toLower();
    if (type == QLatin1String("track") || model == QLatin1String("album"))
        return entry.value(QLatin1String("uri")).toString();
    if (model == QLatin1String("track"))
        return entry.value(QLatin1String("album")).toMap().value(QLatin1String("uri")).toString();
    return {};
}

void applyLookup(const SectionItems &section, const QString &type, const QCborMap &entry, SongDetails *before)
{
    PlayerItem *item = section.itemOf(rowUri(type, entry));
    if (auto *album = qobject_cast<Album *>(item))
        TrackParser::fill(album, entry);
    else if (auto *song = qobject_cast<Song *>(item))
        TrackParser::fill(song, entry, before);
}

} // namespace

struct BrowseListView::Found
{
    const SectionItems *section = nullptr;
    int position = -1;
};

BrowseListView::BrowseListView(QQuickItem *parent) : NavigationView(parent) { }

BrowseListView::~BrowseListView()
{
    for (SectionItems *section : qAsConst(m_sections))
        section->release();
}

QQmlListProperty<PlayerItem> BrowseListView::allSortedItems()
{
    return firstItems(std::numeric_limits<int>::max());
}

QQmlListProperty<PlayerItem> BrowseListView::firstItems(int limit)
{
    m_allSortedItems.clear();
    for (const QString &type : qAsConst(m_rowTypes)) {
        if (const SectionItems *section = sectionOf(type))
            m_allSortedItems.append(section->items.mid(0, limit));
    }
    return listProperty(this, &m_allSortedItems);
}

void BrowseListView::setRowTypes(const QStringList &rowTypes)
{
    m_rowTypes = rowTypes;
}

void BrowseListView::setSections(const QHash<QString, SectionItems *> &sections)
{
    const QHash<QString, SectionItems *> former = m_sections;
    m_sections = sections;
    for (SectionItems *section : sections)
        section->acquire();
    Q_EMIT rowTypesChanged();
    for (SectionItems *section : former)
        section->release();
}

SectionItems *BrowseListView::sectionOf(const QString &type) const
{
    return m_rowTypes.contains(type) ? m_sections.value(type) : nullptr;
}

BrowseListView::Found BrowseListView::find(const QString &uri) const
{
    for (const QString &type : m_rowTypes) {
        const SectionItems *section = isContainer(type) ? nullptr : m_sections.value(type);
        const int position = section ? section->positionOf(uri) : -1;
        if (position != -1)
            return {section, position};
    }
    return {};
}

QList<PlayerItem *> BrowseListView::itemsFromUri(const QString &uri) const
{
    const Found found = find(uri);
    return found.section ? found.section->items.mid(found.position) : QList<PlayerItem *>();
}

QStringList BrowseListView::urisFromUri(const QString &uri) const
{
    const Found found = find(uri);
    return found.section ? QStringList(found.section->itemUris.mid(found.position)) : QStringList();
}

// The new view is connected while it is pushed, so that comes before anything is asked for it.
void BrowseListView::requirePushView(QString uri, QString title)
{
    auto *view = newQmlItem<BrowseListView>(this, QStringLiteral("BrowseList.qml"));
    if (!view)
        return;
    view->setTitle(title);
    Q_EMIT pushView(view);
    Q_EMIT browse(view, uri);
}

void BrowseListView::requireLookup(int startIndex, int endIndex)
{
    const QStringList types = m_rowTypes;
    int start = startIndex;
    int end = endIndex;
    for (const QString &type : types) {
        const SectionItems *section = m_sections.value(type);
        const int count = section ? section->items.size() : 0;
        if (count < start) {
            start -= count;
            end -= count;
            continue;
        }
        if (isContainer(type))
            return;
        // Not rebased for the sections that follow: a range across sections serves each from its own rows.
        start = qMax(start - RowReach::rows, 0);
        end = qMin(end + RowReach::rows, count);
        if (section)
            requestMissing(type, *section, start, end);
    }
}

void BrowseListView::requestMissing(const QString &type, const SectionItems &section, int start, int end)
{
    QStringList lookupUris;
    for (int i = start; i < end; ++i) {
        const PlayerItem *item = section.items.at(i);
        if (lacksDetails(item))
            RowReach::appendOnce(&lookupUris, item->uri());
    }
    const QStringList imageUris = RowReach::withoutPictures(section.items, start, end);
    if (!lookupUris.isEmpty())
        Q_EMIT lookup(newReference(type, lookupUris));
    if (!imageUris.isEmpty())
        Q_EMIT lookupImages(newReference(type, imageUris));
}

// Without a controller nobody adopts it.
BrowseReference *BrowseListView::newReference(const QString &type, const QStringList &uris)
{
    auto *reference = new BrowseReference;
    reference->type = type;
    reference->uris = uris;
    reference->view = this;
    QMetaObject::invokeMethod(
        reference,
        [reference] {
            if (!reference->parent())
                delete reference;
        },
        Qt::QueuedConnection);
    return reference;
}

void BrowseListView::requestImage(QString uri, QQuickItem *item)
{
    if (!item)
        return;
    ImageDownloader *downloader = ImageDownloader::instance();
    if (downloader->isCached(uri))
        item->setProperty("imgSource", uri);
    else
        downloader->requestImage(uri, item);
}

void BrowseListView::discardImage(QString uri, QQuickItem *item)
{
    ImageDownloader::instance()->discardImage(uri, item);
}

void BrowseListView::updateItems(const QString &type, const QJsonValue &value)
{
    const SectionItems *section = sectionOf(type);
    if (!section || !value.isObject())
        return;
    const QCborMap tracksByUri = QCborMap::fromJsonObject(value.toObject());
    SongDetails before;
    for (const auto &tracks : tracksByUri) {
        const QCborArray entries = tracks.second.toArray();
        if (!entries.isEmpty())
            applyLookup(*section, type, entries.first().toMap(), &before);
    }
    Q_EMIT needRefresh();
}

void BrowseListView::updateImages(const QString &type, const QJsonValue &value)
{
    const SectionItems *section = sectionOf(type);
    if (!section || !value.isObject())
        return;
    QList<PlayerItem *> noImages;
    const QJsonObject picturesByUri = value.toObject();
    PictureTables tables;
    for (auto it = picturesByUri.begin(); it != picturesByUri.end(); ++it) {
        PlayerItem *item = section->itemOf(it.key());
        const QJsonArray pictures = it.value().toArray();
        if (item && !pictures.isEmpty())
            tables.set(item, pictures);
        else if (item && canFallBack(item))
            noImages.append(item);
    }
    Q_EMIT needRefresh();
    if (!noImages.isEmpty())
        requestFallback(noImages);
}

// It ends and frees itself behind its batch.
void BrowseListView::requestFallback(const QList<PlayerItem *> &items)
{
    auto *fallback = new BackupImageDownloader(nullptr);
    connect(fallback, &BackupImageDownloader::imagesDownloaded, this, &BrowseListView::needRefresh);
    fallback->requestImages(items);
}
