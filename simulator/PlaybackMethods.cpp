// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/RpcMethods.h"

#include "simulator/MopidyModels.h"
#include "simulator/Playback.h"
#include "simulator/RpcTable.h"

namespace {

// A method without parameters and without a result.
void addAction(RpcTable &table, const QString &name, Playback *playback, void (Playback::*action)())
{
    table.add(QStringLiteral("core.playback.") + name, {}, [playback, action](const QJsonObject &) {
        (playback->*action)();
        return RpcReply();
    });
}

void addQuery(RpcTable &table, const QString &name, const std::function<QJsonValue()> &query)
{
    table.add(QStringLiteral("core.playback.") + name, {}, [query](const QJsonObject &) {
        return RpcReply{query(), {}};
    });
}

RpcReply play(Playback *playback, const QJsonObject &parameters)
{
    const QJsonValue tlid = parameters.value(QStringLiteral("tlid"));
    if (!tlid.isDouble() && !tlid.isNull() && !tlid.isUndefined())
        return RpcReply::applicationError(QStringLiteral("ValidationError"),
                                          QStringLiteral("Expected an integer, not a %1").arg(tlid.type()));
    playback->play(tlid.toInt());
    return {};
}

RpcReply seek(Playback *playback, const QJsonObject &parameters)
{
    return {playback->seek(parameters.value(QStringLiteral("time_position")).toInt()), {}};
}

} // namespace

void RpcMethods::addPlayback(RpcTable &table, Playback *playback)
{
    addQuery(table, QStringLiteral("get_state"), [playback] { return playback->stateName(); });
    addQuery(table, QStringLiteral("get_time_position"), [playback] { return playback->timePosition(); });
    addQuery(table, QStringLiteral("get_current_track"), [playback]() -> QJsonValue {
        if (playback->currentTlid() == 0)
            return QJsonValue::Null;
        return MopidyModels::track(playback->current().track);
    });
    addQuery(table, QStringLiteral("get_current_tl_track"), [playback]() -> QJsonValue {
        if (playback->currentTlid() == 0)
            return QJsonValue::Null;
        return MopidyModels::tlTrack(playback->currentTlid(), playback->current().track);
    });
    addQuery(table, QStringLiteral("get_stream_title"), [playback]() -> QJsonValue {
        return playback->streamTitle().isEmpty() ? QJsonValue() : QJsonValue(playback->streamTitle());
    });

    addAction(table, QStringLiteral("pause"), playback, &Playback::pause);
    addAction(table, QStringLiteral("resume"), playback, &Playback::resume);
    addAction(table, QStringLiteral("stop"), playback, &Playback::stop);
    addAction(table, QStringLiteral("next"), playback, &Playback::next);
    addAction(table, QStringLiteral("previous"), playback, &Playback::previous);

    table.add(QStringLiteral("core.playback.play"), {}, {QStringLiteral("tl_track"), QStringLiteral("tlid")},
              [playback](const QJsonObject &parameters) { return play(playback, parameters); });
    table.add(QStringLiteral("core.playback.seek"), {QStringLiteral("time_position")},
              [playback](const QJsonObject &parameters) { return seek(playback, parameters); });
}
