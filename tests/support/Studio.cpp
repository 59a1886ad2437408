// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Studio.h"

#include "player/PlayerTiming.h"
#include "support/Listed.h"
#include "support/Waiting.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

QString request(int id, const QString &method, const QString &params)
{
    const QString tail = params.isEmpty() ? QString() : ",\"params\":"_s + params;
    return "{\"id\":\"%1\",\"jsonrpc\":\"2.0\",\"method\":\"%2\"%3}"_s.arg(id).arg(method, tail);
}

QJsonValue json(const QString &text)
{
    return QJsonDocument::fromJson("[" + text.toUtf8() + "]").array().at(0);
}

QString textOf(const QJsonValue &value)
{
    if (value.isUndefined())
        return "undefined"_s;
    const QString list = QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    return list.mid(1, list.size() - 2);
}

QString stateOf(HalvoraPlayer *player)
{
    QStringList texts{
        "%1 %2 %3"_s.arg(player->playPause()).arg(int(player->shuffle())).arg(int(player->repeat()))};
    texts << "song:"_s + (player->currentSong() ? player->currentSong()->uri() : QString());
    texts << "time:%1"_s.arg(player->currentSong() ? player->currentSong()->currTime() : -1);
    texts << "queue:"_s;
    for (const int tlid : player->queueTlid())
        texts.last() += QString::number(tlid);
    texts << "lists:"_s;
    for (const PlayerItem *item : listed(player->playlists()))
        texts.last() += item->uri();
    return (texts << "filters:"_s + player->filters().join(QLatin1Char(','))).join(QLatin1Char(' '));
}

const QString track =
    R"({"uri":"local:a","name":"A","length":61001,"album":{"uri":"al:1","name":"Al","comment":"Co",)"
    R"("artists":[{"name":"AA"}]},"artists":[{"uri":"ar:1","name":"X"},{"name":"Y"},{"uri":"ar:3"}]})"_s;

Studio::Studio(int retry)
{
    PlayerTiming::current() = {never, retry, 2 * retry};
    QVERIFY(server.listen());
    player.setIpAddress("127.0.0.1"_s);
    player.setPort(server.port());
}

void Studio::connect()
{
    const int earlier = server.paths.size();
    player.startConnection();
    QVERIFY(Waiting::comes([&] { return server.paths.size() > earlier && server.liveSockets() == 1; }));
    settle();
}

void Studio::settle()
{
    static const QStringList states{"stopped"_s, "paused"_s, "playing"_s};
    QSignalSpy read(&player, &HalvoraPlayer::playPauseChanged);
    server.send(
        QJsonObject{{"event"_s, "playback_state_changed"_s}, {"new_state"_s, states.at(player.playPause())}});
    QVERIFY(read.size() || read.wait());
}

void Studio::say(const QString &text)
{
    server.send(text);
    settle();
}

QStringList Studio::sent()
{
    const QString marker = "core.playback.previous"_s;
    player.actionPrevious();
    [&] { QVERIFY(Waiting::comes([&] { return server.methods().contains(marker); })); }();
    QStringList texts;
    texts.swap(server.texts);
    [&] { QVERIFY(!texts.takeLast().contains("params"_s)); }();
    return texts;
}

QStringList Studio::asked()
{
    QStringList texts;
    for (const QString &text : sent()) {
        const QJsonObject request = json(text).toObject();
        texts << request.value("method"_s).toString();
        if (request.contains("params"_s))
            texts.last() += QLatin1Char(' ') + textOf(request.value("params"_s));
    }
    return texts;
}

QStringList Studio::sentMethods()
{
    QStringList names = asked();
    for (QString &name : names)
        name = name.section(QLatin1Char(' '), 0, 0);
    return names;
}
