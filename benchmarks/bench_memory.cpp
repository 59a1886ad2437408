// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Answers.h"
#include "Measurement.h"

#include "navigation/BrowseListView.h"
#include "navigation/LibraryRows.h"
#include "player/HalvoraPlayer.h"
#include "player/Song.h"

#include <QGuiApplication>
#include <QJsonDocument>

#include <optional>

#include <malloc.h>

// bench_memory ours: what a row of the library and an entry of the queue keep of the heap, in lists of 20,000 tracks of
// albums of ten. A row as it is listed, and with the details and the addresses of pictures that it gets when it is
// scrolled into sight; an entry at queueChanged(), at rest, and with the addresses of its pictures. Those are the
// album's, or the track's own.

namespace {

constexpr int entries = 20000;

double heapBytes()
{
    const auto info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

QByteArray ending(Answers::Covers covers)
{
    return covers == Answers::Covers::OfAlbums ? "-whole" : "-own";
}

bool isWhole(PlayerItem *item)
{
    const auto *song = qobject_cast<Song *>(item);
    return song && !song->album().isEmpty() && song->images->size() == 3;
}

void measureRow(const Measurement::Call &call, Answers::Covers covers)
{
    const QJsonObject reply = QJsonDocument::fromJson(Answers::directory(entries)).object();
    const QJsonObject details = Answers::lookupOfLast(entries, entries);
    const QJsonObject pictures = Answers::pictures(entries, covers);
    const QJsonValue answer = reply.value(QStringLiteral("result"));
    BrowseListView view;
    const double before = heapBytes();
    const LibraryRows read = LibraryRows::fromDirectory(answer);
    view.setRowTypes(read.types);
    view.setSections(read.sections);
    QQmlListProperty<PlayerItem> list = view.allSortedItems();
    if (list.count(&list) != entries)
        qFatal("rows are missing");
    if (covers == Answers::Covers::OfAlbums)
        call.report("memory-row", (heapBytes() - before) / entries, "B");
    view.updateItems(QStringLiteral("track"), details);
    view.updateImages(QStringLiteral("track"), pictures);
    if (!isWhole(list.at(&list, 0)) || !isWhole(list.at(&list, entries - 1)))
        qFatal("details or pictures are missing");
    call.report("memory-row" + ending(covers), (heapBytes() - before) / entries, "B");
}

// With or without the answer to the request for the pictures, which comes behind that for the tracklist.
void measureQueue(const Measurement::Call &call, std::optional<Answers::Covers> covers)
{
    const QString pictures = covers
        ? QString::fromUtf8(Answers::reply(Answers::pictures(entries, *covers), 1))
        : QString();
    const auto player = Answers::waitingPlayer();
    const QString text = QString::fromUtf8(Answers::tracklist(entries));
    player->socketMessageReceived(QStringLiteral("{\"event\":\"tracklist_changed\"}"));
    double atChange = 0;
    const double before = heapBytes();
    QObject::connect(player.get(), &HalvoraPlayer::queueChanged, [&] { atChange = heapBytes(); });
    player->socketMessageReceived(text);
    player->socketMessageReceived(pictures);
    player->stopConnection(); // lest a retry come in between
    Answers::settle();
    const double atRest = heapBytes();
    QQmlListProperty<Song> queue = player->queue();
    if (!Answers::endsTracklist(player.get(), entries))
        qFatal("the queue has not arrived");
    if (!covers) {
        call.report("memory-entry", (atRest - before) / entries, "B");
        call.report("memory-entry-at-change", (atChange - before) / entries, "B");
    } else {
        if (!isWhole(queue.at(&queue, 0)) || !isWhole(queue.at(&queue, entries - 1)))
            qFatal("pictures are missing");
        call.report("memory-entry" + ending(*covers), (atRest - before) / entries, "B");
    }
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const Measurement::Call call(argc, argv);
    measureQueue(call, std::nullopt);
    for (const auto covers : {Answers::Covers::OfAlbums, Answers::Covers::OfTracks}) {
        measureRow(call, covers);
        measureQueue(call, covers);
    }
    return 0;
}
