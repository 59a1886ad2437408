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

#include <malloc.h>

// bench_memory ours: what a row of the library and an entry of the queue keep of the heap, in lists of
// 20,000; the queue's both at queueChanged() and when the event loop has come to rest.

namespace {

constexpr int entries = 20000;

double heapBytes()
{
    const auto info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

double bytesOfRow()
{
    const QJsonObject reply = QJsonDocument::fromJson(Answers::directory(entries)).object();
    const QJsonValue answer = reply.value(QStringLiteral("result"));
    BrowseListView view;
    const double before = heapBytes();
    const LibraryRows read = LibraryRows::fromDirectory(answer);
    view.setRowTypes(read.types);
    view.setSections(read.sections);
    QQmlListProperty<PlayerItem> list = view.allSortedItems();
    if (list.count(&list) != entries)
        qFatal("rows are missing");
    return (heapBytes() - before) / entries;
}

void measureQueue(const Measurement::Call &call)
{
    const auto player = Answers::waitingPlayer();
    const QString text = QString::fromUtf8(Answers::tracklist(entries));
    player->socketMessageReceived(QStringLiteral("{\"event\":\"tracklist_changed\"}"));
    double atChange = 0;
    const double before = heapBytes();
    QObject::connect(player.get(), &HalvoraPlayer::queueChanged, [&] { atChange = heapBytes(); });
    player->socketMessageReceived(text);
    player->stopConnection(); // lest a retry come in between
    Answers::settle();
    QQmlListProperty<Song> queue = player->queue();
    if (queue.count(&queue) != entries || queue.at(&queue, entries - 1)->album().isEmpty())
        qFatal("the queue has not arrived");
    call.report("memory-entry", (heapBytes() - before) / entries, "B");
    call.report("memory-entry-at-change", (atChange - before) / entries, "B");
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const Measurement::Call call(argc, argv);
    call.report("memory-row", bytesOfRow(), "B");
    measureQueue(call);
    return 0;
}
