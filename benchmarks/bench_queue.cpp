// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Answers.h"
#include "Measurement.h"

#include "player/HalvoraPlayer.h"
#include "player/Reclaimer.h"

#include <QCoreApplication>
#include <QQmlEngine>

// bench_queue ours|peer|text [ENTRIES]: from the text of a tracklist to queueChanged(), or through Qt's
// parser alone. "text" writes that text for the client in JavaScript, to which the wall times of "ours" are
// compared.

namespace {

double toQueueChanged(const QString &text, int entries, double (*clock)())
{
    Answers::settle();
    const auto player = Answers::waitingPlayer();
    double changed = 0;
    QObject::connect(player.get(), &HalvoraPlayer::queueChanged, [&] { changed = clock(); });
    player->socketMessageReceived(QStringLiteral("{\"event\":\"tracklist_changed\"}"));
    const double before = clock();
    Measurement::timed([&] { player->socketMessageReceived(text); });
    if (changed < before || player->queueTlid().size() != entries)
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
    const auto measure = [&](double (*clock)()) {
        return 1e3 * Measurement::medianOfTurns([&] { return toQueueChanged(text, entries, clock); });
    };
    if (call.isPeer()) {
        call.report(name, 1e3 * Measurement::medianOfTurns([&] { return Answers::secondsOfParser(bytes); }),
                    "ms");
    } else {
        call.report(name, measure(Measurement::threadSeconds), "ms");
        call.report(name + "-wall", measure(Measurement::wallSeconds), "ms");
    }
    return 0;
}
