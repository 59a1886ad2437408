// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/LongReply.h"

#include "player/JsonReader.h"
#include "player/LongReplyReader.h"

#include <QObject>

namespace {

// The place behind the last value of an object that fills the whole text; -1 when it ends otherwise.
int endOfLastValue(const QString &message)
{
    int end = message.size();
    while (end > 0 && JsonReader::isSpace(message.at(end - 1)))
        --end;
    return end > 0 && message.at(end - 1) == QLatin1Char('}') ? end - 1 : -1;
}

} // namespace

std::optional<LongReply> LongReply::of(const QString &message)
{
    if (message.size() < leastLength)
        return std::nullopt;
    JsonReader reader({message, 0, message.size()});
    QStringView key;
    QString id;
    QString version;
    reader.enterObject();
    while (reader.nextKey(&key)) {
        if (key == QLatin1String("result"))
            break;
        QString *const value = key == QLatin1String("id") && id.isNull() ? &id
            : key == QLatin1String("jsonrpc") && version.isNull()        ? &version
                                                                         : nullptr;
        if (!value || !reader.readText(value))
            return std::nullopt;
    }
    const int end = endOfLastValue(message);
    if (reader.hasFailed() || key != QLatin1String("result") || id.isNull() || end < reader.position())
        return std::nullopt;
    return LongReply{id.toInt(), {message, reader.position(), end}};
}

bool LongReply::deliverTo(QObject *receiver, const char *handler) const
{
    auto *reader = dynamic_cast<LongReplyReader *>(receiver);
    return reader && reader->readLongReply(handler, id, result);
}
