// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Answers.h"

#include "Measurement.h"

#include "player/HalvoraPlayer.h"
#include "player/Song.h"
#include "simulator/Catalogue.h"
#include "simulator/MopidyModels.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

QByteArray rowsInReply(int rows, const std::function<QJsonObject(int, const CatalogueTrack &)> &row)
{
    const Catalogue catalogue(1, rows);
    QJsonArray result;
    for (int i = 0; i < rows; ++i)
        result.append(row(i, catalogue.track(i)));
    return Answers::reply(result, 0);
}

} // namespace

QByteArray Answers::reply(const QJsonValue &result, int id)
{
    return QJsonDocument(QJsonObject{{QStringLiteral("jsonrpc"), QStringLiteral("2.0")},
                                     {QStringLiteral("id"), QString::number(id)},
                                     {QStringLiteral("result"), result}})
        .toJson(QJsonDocument::Compact);
}

QByteArray Answers::tracklist(int entries)
{
    return rowsInReply(
        entries, [](int i, const CatalogueTrack &track) { return MopidyModels::tlTrack(i + 1, track); });
}

QByteArray Answers::directory(int rows)
{
    return rowsInReply(rows, [](int, const CatalogueTrack &track) {
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

QJsonObject Answers::pictures(int rows, Covers covers)
{
    const QString address = QStringLiteral("http://127.0.0.1:6680/local/%1-%2.jpg");
    const Catalogue catalogue(1, rows);
    QJsonObject answer;
    for (int i = 0; i < rows; ++i) {
        QJsonArray widths;
        const CatalogueTrack track = catalogue.track(i);
        const quint32 cover = covers == Covers::OfAlbums ? track.coverSeed : quint32(i);
        for (const int width : {64, 300, 640})
            widths.append(MopidyModels::image(address.arg(cover, 8, 16, QLatin1Char('0')).arg(width), width));
        answer.insert(track.uri, widths);
    }
    return answer;
}

bool Answers::endsTracklist(HalvoraPlayer *player, int entries)
{
    const CatalogueTrack wanted = Catalogue(1, entries).track(entries - 1);
    QStringList artists;
    for (const CatalogueArtist &artist : wanted.artists)
        artists.append(artist.name);
    QQmlListProperty<Song> queue = player->queue();
    if (queue.count(&queue) != entries)
        return false;
    const Song *last = queue.at(&queue, entries - 1);
    return last->uri() == wanted.uri && last->name() == wanted.name && last->albumUri() == wanted.albumUri
        && last->album() == wanted.albumName && last->artists() == artists;
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
