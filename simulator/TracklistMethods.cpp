// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/RpcMethods.h"

#include <QJsonArray>

#include "simulator/LibraryTree.h"
#include "simulator/MopidyModels.h"
#include "simulator/Playback.h"
#include "simulator/RpcTable.h"
#include "simulator/Tracklist.h"
#include "simulator/UriList.h"

namespace {

QString method(const char *name)
{
    return QStringLiteral("core.tracklist.") + QLatin1String(name);
}

QJsonArray tlTracks(const QVector<TracklistEntry> &entries)
{
    QJsonArray array;
    for (const TracklistEntry &entry : entries)
        array << MopidyModels::tlTrack(entry.tlid, entry.track);
    return array;
}

QJsonArray tracks(const QVector<TracklistEntry> &entries)
{
    QJsonArray array;
    for (const TracklistEntry &entry : entries)
        array << MopidyModels::track(entry.track);
    return array;
}

QVector<int> integers(const QJsonValue &value)
{
    QVector<int> numbers;
    const QJsonArray array = value.toArray();
    for (const QJsonValue &number : array)
        numbers << number.toInt();
    return numbers;
}

void addOption(RpcTable &table, const QString &name, Tracklist *tracklist, bool (Tracklist::*get)() const,
               void (Tracklist::*set)(bool))
{
    table.add(QStringLiteral("core.tracklist.get_") + name, {}, [tracklist, get](const QJsonObject &) {
        return RpcReply{(tracklist->*get)(), {}};
    });
    table.add(QStringLiteral("core.tracklist.set_") + name, {QStringLiteral("value")},
              [tracklist, set](const QJsonObject &parameters) {
                  const QJsonValue value = parameters.value(QStringLiteral("value"));
                  if (!value.isBool())
                      return RpcReply::applicationError(QStringLiteral("ValidationError"),
                                                        QStringLiteral("Expected True or False"));
                  (tracklist->*set)(value.toBool());
                  return RpcReply();
              });
}

// An album and an artist stand for their tracks; a uri that nobody knows adds nothing.
RpcReply add(Tracklist *tracklist, const Catalogue &catalogue, const QJsonObject &parameters)
{
    const QJsonValue uris = parameters.value(QStringLiteral("uris"));
    if (!parameters.contains(QStringLiteral("tracks")) && (uris.isUndefined() || uris.isNull()))
        return RpcReply::applicationError(
            QStringLiteral("ValueError"),
            QStringLiteral("Exactly one of \"tracks\" or \"uris\" must be set"));
    if (const std::optional<RpcReply> refusal = UriList::refusal(uris))
        return *refusal;
    QVector<CatalogueTrack> found;
    const QStringList asked = UriList::uris(uris);
    for (const QString &uri : asked)
        found << LibraryTree::tracksOf(catalogue, uri);
    return {tlTracks(tracklist->add(found, parameters.value(QStringLiteral("at_position")).toInt(-1))), {}};
}

// Without parameters it asks for the current entry.
RpcReply index(const Tracklist *tracklist, const Playback *playback, const QJsonObject &parameters)
{
    const QJsonObject tlTrack = parameters.value(QStringLiteral("tl_track")).toObject();
    const int asked = parameters.value(QStringLiteral("tlid"))
                          .toInt(tlTrack.value(QStringLiteral("tlid")).toInt());
    const int position = tracklist->position(asked != 0 ? asked : playback->currentTlid());
    return {position < 0 ? QJsonValue() : QJsonValue(position), {}};
}

} // namespace

void RpcMethods::addTracklist(RpcTable &table, Tracklist *tracklist, Playback *playback,
                              const Catalogue &catalogue)
{
    addOption(table, QStringLiteral("random"), tracklist, &Tracklist::isRandom, &Tracklist::setRandom);
    addOption(table, QStringLiteral("repeat"), tracklist, &Tracklist::isRepeat, &Tracklist::setRepeat);

    table.add(method("get_tl_tracks"), {}, [tracklist](const QJsonObject &) {
        return RpcReply{tlTracks(tracklist->entries()), {}};
    });
    table.add(method("get_tracks"), {}, [tracklist](const QJsonObject &) {
        return RpcReply{tracks(tracklist->entries()), {}};
    });
    table.add(method("get_length"), {}, [tracklist](const QJsonObject &) {
        return RpcReply{tracklist->entries().size(), {}};
    });
    table.add(method("index"), {}, {QStringLiteral("tl_track"), QStringLiteral("tlid")},
              [tracklist, playback](const QJsonObject &parameters) {
                  return index(tracklist, playback, parameters);
              });
    table.add(method("add"), {},
              {QStringLiteral("tracks"), QStringLiteral("at_position"), QStringLiteral("uris")},
              [tracklist, &catalogue](const QJsonObject &parameters) {
                  return add(tracklist, catalogue, parameters);
              });
    table.add(method("clear"), {}, [tracklist](const QJsonObject &) {
        tracklist->clear();
        return RpcReply();
    });
}

void RpcMethods::addTracklistRemove(RpcTable &table, Tracklist *tracklist, RemoveForm form)
{
    const QString tlid = QStringLiteral("tlid");
    const QString criteria = QStringLiteral("criteria");
    table.add(method("remove"), {form == RemoveForm::Tlid ? tlid : criteria},
              [tracklist, tlid, criteria](const QJsonObject &parameters) {
                  const QJsonValue tlids = parameters.value(criteria).toObject().value(tlid);
                  const QVector<int> named = integers(tlids) + integers(parameters.value(tlid));
                  return RpcReply{tlTracks(tracklist->remove(named)), {}};
              });
}
