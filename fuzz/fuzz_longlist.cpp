// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

// A long reply, and the list of one, read from its text. What the reader does not leave to Qt's parser it has to read alike.

#include "navigation/LibraryRows.h"
#include "navigation/SectionItems.h"
#include "player/HalvoraPlayer.h"
#include "player/LongReply.h"
#include "support/FuzzRun.h"
#include "support/Listed.h"
#include "support/Require.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

void requireAlike(const PlayerItem *ours, const PlayerItem *qts)
{
    REQUIRE(ours->uri() == qts->uri() && ours->name() == qts->name() && ours->type() == qts->type());
    const auto *song = qobject_cast<const Song *>(ours);
    const auto *other = qobject_cast<const Song *>(qts);
    REQUIRE(!song == !other);
    if (!song)
        return;
    REQUIRE(song->album() == other->album() && song->albumUri() == other->albumUri());
    REQUIRE(song->artists() == other->artists() && song->artistsUri() == other->artistsUri());
}

template<typename Item>
void requireAlike(const QList<Item *> &ours, const QList<Item *> &qts)
{
    REQUIRE(ours.size() == qts.size());
    for (int i = 0; i < ours.size(); ++i)
        requireAlike(ours.at(i), qts.at(i));
}

void tryQueue(const JsonText &text, const QJsonDocument &document)
{
    HalvoraPlayer ours;
    if (!ours.updateQueue(text))
        return;
    REQUIRE(document.isArray());
    HalvoraPlayer qts;
    qts.updateQueue(document.array());
    REQUIRE(ours.queueTlid() == qts.queueTlid());
    requireAlike(listed(ours.queue()), listed(qts.queue()));
}

using FromText = std::optional<LibraryRows> (*)(const JsonText &);
using FromValue = LibraryRows (*)(const QJsonValue &);

void tryRows(FromText fromText, FromValue fromValue, const JsonText &text, const QJsonDocument &document)
{
    const auto ours = fromText(text);
    if (!ours)
        return;
    REQUIRE(document.isArray());
    const LibraryRows qts = fromValue(document.array());
    REQUIRE(ours->types == qts.types);
    for (const QString &type : qts.types) {
        requireAlike(ours->sections.value(type)->items, qts.sections.value(type)->items);
        ours->sections.value(type)->release();
        qts.sections.value(type)->release();
    }
}

// The input as a whole reply, made long enough.
void tryReply(const QString &input)
{
    const QString message = input + QString(LongReply::leastLength, QLatin1Char(' '));
    const auto reply = LongReply::of(message);
    HalvoraPlayer ours;
    if (!reply || !ours.updateQueue(reply->result))
        return;
    const QJsonObject object = QJsonDocument::fromJson(message.toUtf8()).object();
    REQUIRE(object.contains(QLatin1String("result")) && !object.contains(QLatin1String("event")));
    REQUIRE(object.value(QLatin1String("id")).toString().toInt() == reply->id);
    HalvoraPlayer qts;
    qts.updateQueue(object.value(QLatin1String("result")));
    REQUIRE(ours.queueTlid() == qts.queueTlid());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const FuzzRun run;
    const QString list = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    const QJsonDocument document = QJsonDocument::fromJson(list.toUtf8());
    const JsonText text{list, 0, list.size()};
    tryQueue(text, document);
    tryRows(LibraryRows::fromDirectory, LibraryRows::fromDirectory, text, document);
    tryRows(LibraryRows::fromPlaylist, LibraryRows::fromPlaylist, text, document);
    tryReply(list);
    return 0;
}
