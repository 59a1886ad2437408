// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Answers.h"
#include "Measurement.h"

#include "player/HalvoraPlayer.h"
#include "player/Reclaimer.h"
#include "player/Song.h"

#include <QCoreApplication>
#include <QQmlEngine>

// bench_queue ours|complete|peer|text [ENTRIES]: from the text of a tracklist to queueChanged(), or until the
// album and the artists of each entry have been read in there as well, or through Qt's parser alone. "text" writes
// that text for the client in JavaScript, to which the wall times of "ours" and "complete" are compared.

namespace {

enum class Until { Changed, Complete };

void readAll(HalvoraPlayer *player)
{
    QQmlListProperty<Song> queue = player->queue();
    const int entries = queue.count(&queue);
    for (int i = 0; i < entries; ++i)
        queue.at(&queue, i)->details();
}

double toQueueChanged(const QString &text, int entries, Until until, double (*clock)())
{
    Answers::settle();
    const auto player = Answers::waitingPlayer();
    double changed = 0;
    QObject::connect(player.get(), &HalvoraPlayer::queueChanged, [&] {
        if (until == Until::Complete)
            readAll(player.get());
        changed = clock();
    });
    player->socketMessageReceived(QStringLiteral("{\"event\":\"tracklist_changed\"}"));
    const double before = clock();
    Measurement::timed([&] { player->socketMessageReceived(text); });
    if (changed < before || player->queueTlid().size() != entries
        || !Answers::endsTracklist(player.get(), entries))
        qFatal("the queue has not arrived");
    return changed - before;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QQmlEngine engine;
    Reclaimer::begin(&engine);
    const Measurement::Call call(argc, argv);
    const int entries = call.number(1, 5000);
    const QByteArray bytes = Answers::tracklist(entries);
    if (call.text(0) == "text") {
        std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
        return 0;
    }
    const QString text = QString::fromUtf8(bytes);
    const QByteArray name = "queue-" + QByteArray::number(entries);
    const auto measure = [&](Until until, double (*clock)()) {
        return 1e3 * Measurement::medianOfTurns([&] { return toQueueChanged(text, entries, until, clock); });
    };
    if (call.isPeer()) {
        call.report(name, 1e3 * Measurement::medianOfTurns([&] { return Answers::secondsOfParser(bytes); }),
                    "ms");
    } else if (call.text(0) == "complete") {
        call.report(name + "-complete", measure(Until::Complete, Measurement::wallSeconds), "ms");
    } else {
        call.report(name, measure(Until::Changed, Measurement::threadSeconds), "ms");
        call.report(name + "-wall", measure(Until::Changed, Measurement::wallSeconds), "ms");
    }
    return 0;
}
