// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Measurement.h"

#include "player/HalvoraPlayer.h"
#include "simulator/Catalogue.h"
#include "simulator/MopidyModels.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonDocument>

// From the text of a tracklist to queueChanged(), against Qt's parser alone on the same text.

namespace {

double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

QString tracklist(int entries)
{
    const Catalogue catalogue(1, entries);
    QJsonArray rows;
    for (int i = 0; i < entries; ++i)
        rows.append(MopidyModels::tlTrack(i + 1, catalogue.track(i)));
    const QJsonObject reply{{QStringLiteral("jsonrpc"), QStringLiteral("2.0")},
                            {QStringLiteral("id"), QStringLiteral("0")},
                            {QStringLiteral("result"), rows}};
    return QString::fromUtf8(QJsonDocument(reply).toJson(QJsonDocument::Compact));
}

double toQueueChanged(const QString &text, int entries)
{
    HalvoraPlayer player;
    QElapsedTimer timer;
    double elapsed = 0;
    QObject::connect(&player, &HalvoraPlayer::queueChanged, &player, [&] { elapsed = milliseconds(timer); });
    // A port where nobody answers will do: all that is wanted is a request that waits, under id 0.
    player.setIpAddress(QStringLiteral("127.0.0.1"));
    player.setPort(QStringLiteral("1"));
    player.startConnection();
    player.socketMessageReceived(QStringLiteral("{\"event\":\"tracklist_changed\"}"));
    timer.start();
    player.socketMessageReceived(text);
    if (elapsed <= 0 || player.queueTlid().size() != entries)
        qFatal("the queue has not arrived");
    // Nobody frees what a list has dropped; here it would make each turn slower than the one before.
    QQmlListProperty<Song> queue = player.queue();
    for (int i = 0; i < queue.count(&queue); ++i)
        delete queue.at(&queue, i);
    return elapsed;
}

double parseAlone(const QByteArray &text)
{
    QElapsedTimer timer;
    timer.start();
    const QJsonDocument document = QJsonDocument::fromJson(text);
    const double elapsed = milliseconds(timer);
    if (!document.isObject())
        qFatal("the parser has refused the text");
    return elapsed;
}

bool measure(int entries)
{
    const QString text = tracklist(entries);
    const QByteArray bytes = text.toUtf8();
    const QByteArray name = "tracklist of " + QByteArray::number(entries) + " entries";
    return Measurement::compare(
        name.constData(), [&] { return toQueueChanged(text, entries); }, [&] { return parseAlone(bytes); },
        1.5);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QStringList sizes = application.arguments().mid(1); // numbers of entries
    if (sizes.isEmpty())
        sizes = QStringList{QStringLiteral("1000"), QStringLiteral("5000"), QStringLiteral("10000"),
                            QStringLiteral("20000")};
    bool met = true;
    for (const QString &size : qAsConst(sizes))
        met = measure(size.toInt()) && met;
    return met ? 0 : 1;
}
