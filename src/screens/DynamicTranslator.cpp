// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "screens/DynamicTranslator.h"

#include <QCoreApplication>

QHash<QString, QString> DynamicTranslator::translationTable;

namespace {

struct Word
{
    const char *key;
    const char *source;
};

constexpr Word words[] = {
    {"track", QT_TRANSLATE_NOOP("DynamicTranslator", "Tracks")},
    {"album", QT_TRANSLATE_NOOP("DynamicTranslator", "Albums")},
    {"artist", QT_TRANSLATE_NOOP("DynamicTranslator", "Artists")},
    {"all", QT_TRANSLATE_NOOP("DynamicTranslator", "All services")},
    {"spotify", QT_TRANSLATE_NOOP("DynamicTranslator", "Spotify")},
    {"spotifytunigo", QT_TRANSLATE_NOOP("DynamicTranslator", "Spotify browse")},
    {"local", QT_TRANSLATE_NOOP("DynamicTranslator", "Local files")},
    {"m3u", QT_TRANSLATE_NOOP("DynamicTranslator", "Local playlists")},
    {"podcast", QT_TRANSLATE_NOOP("DynamicTranslator", "Podcasts")},
    {"podcast+itunes", QT_TRANSLATE_NOOP("DynamicTranslator", "iTunes Store: Podcasts")},
    {"dirble", QT_TRANSLATE_NOOP("DynamicTranslator", "Dirble")},
    {"tunein", QT_TRANSLATE_NOOP("DynamicTranslator", "TuneIn")},
    {"soundcloud", QT_TRANSLATE_NOOP("DynamicTranslator", "SoundCloud")},
    {"gmusic", QT_TRANSLATE_NOOP("DynamicTranslator", "Google Music")},
    {"internetarchive", QT_TRANSLATE_NOOP("DynamicTranslator", "Internet Archive")},
    {"somafm", QT_TRANSLATE_NOOP("DynamicTranslator", "Soma FM")},
    {"youtube", QT_TRANSLATE_NOOP("DynamicTranslator", "YouTube")},
    {"audioaddict", QT_TRANSLATE_NOOP("DynamicTranslator", "AudioAddict")},
    {"subsonic", QT_TRANSLATE_NOOP("DynamicTranslator", "Subsonic")},
    {"It_PlayNow", QT_TRANSLATE_NOOP("DynamicTranslator", "Play Now")},
    {"It_PlayNow_All", QT_TRANSLATE_NOOP("DynamicTranslator", "Play All Now")},
    {"It_PlayAfter", QT_TRANSLATE_NOOP("DynamicTranslator", "Play Track Next")},
    {"It_AddToQueue", QT_TRANSLATE_NOOP("DynamicTranslator", "Add to Queue")},
    {"It_AddToQueue_All", QT_TRANSLATE_NOOP("DynamicTranslator", "Add All to Queue")},
    {"It_AddToPlaylist", QT_TRANSLATE_NOOP("DynamicTranslator", "Add to Playlist")},
    {"It_AddToPlaylist_All", QT_TRANSLATE_NOOP("DynamicTranslator", "Add All to Playlist")},
    {"It_RemoveQueue", QT_TRANSLATE_NOOP("DynamicTranslator", "Remove from Queue")},
    {"It_ShowAlbum", QT_TRANSLATE_NOOP("DynamicTranslator", "Show Album")},
    {"It_Rename", QT_TRANSLATE_NOOP("DynamicTranslator", "Rename")},
    {"It_Delete", QT_TRANSLATE_NOOP("DynamicTranslator", "Delete")},
    {"It_Associate", QT_TRANSLATE_NOOP("DynamicTranslator", "Associate")},
};

} // namespace

DynamicTranslator::DynamicTranslator(QObject *parent) : QObject(parent) { }

QString DynamicTranslator::translate(QString origin) const
{
    return translation(origin);
}

QString DynamicTranslator::translation(const QString &origin)
{
    return translationTable.value(origin, QLatin1String(""));
}

void DynamicTranslator::loadTranslations()
{
    translationTable.clear();
    for (const Word &word : words)
        translationTable.insert(QLatin1String(word.key), tr(word.source));
}
