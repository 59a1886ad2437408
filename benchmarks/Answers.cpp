// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Answers.h"

#include "Measurement.h"

#include "player/HalvoraPlayer.h"
#include "simulator/Catalogue.h"
#include "simulator/MopidyModels.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

QByteArray reply(int rows, const std::function<QJsonObject(int, const CatalogueTrack &)> &row)
{
    const Catalogue catalogue(1, rows);
    QJsonArray result;
    for (int i = 0; i < rows; ++i)
        result.append(row(i, catalogue.track(i)));
    return QJsonDocument(QJsonObject{{QStringLiteral("jsonrpc"), QStringLiteral("2.0")},
                                     {QStringLiteral("id"), QStringLiteral("0")},
                                     {QStringLiteral("result"), result}})
        .toJson(QJsonDocument::Compact);
}

} // namespace

QByteArray Answers::tracklist(int entries)
{
    return reply(entries,
                 [](int i, const CatalogueTrack &track) { return MopidyModels::tlTrack(i + 1, track); });
}

QByteArray Answers::directory(int rows)
{
    return reply(rows, [](int, const CatalogueTrack &track) {
        return MopidyModels::ref(QStringLiteral("track"), track.uri, track.name);
    });
}

QJsonObject Answers::lookupOfLast(int looked, int rows)
{
    const Catalogue catalogue(1, rows);
    QJsonObject answer;
    for (int i = rows - looked; i < rows; ++i) {
        const CatalogueTrack track = catalogue.track(i);
        answer.insert(track.uri, QJsonArray{MopidyModels::track(track)});
    }
    return answer;
}

double Answers::secondsOfParser(const QByteArray &text)
{
    QJsonDocument document;
    const double elapsed = Measurement::timed([&] { document = QJsonDocument::fromJson(text); });
    if (!document.isObject())
        qFatal("the parser has refused the text");
    return elapsed;
}

std::unique_ptr<HalvoraPlayer> Answers::waitingPlayer()
{
    auto player = std::make_unique<HalvoraPlayer>();
    player->setIpAddress(QStringLiteral("127.0.0.1"));
    player->setPort(QStringLiteral("1"));
    player->startConnection();
    return player;
}

void Answers::settle()
{
    while (QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents)) { }
}
