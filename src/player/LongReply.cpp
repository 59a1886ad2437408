// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/LongReply.h"

#include "player/JsonReader.h"

#include <QMetaMethod>
#include <QMetaObject>

namespace {

// The place behind the last value of an object that fills the whole text; -1 when it ends otherwise.
int endOfLastValue(const QString &message)
{
    int end = message.size();
    while (end > 0 && message.at(end - 1).isSpace())
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
    const bool withId = qstrncmp(handler, "browse", qstrlen("browse")) == 0;
    const QByteArray signature = QByteArray(handler) + (withId ? "(int,JsonText)" : "(JsonText)");
    const int index = receiver->metaObject()->indexOfMethod(signature.constData());
    if (index < 0)
        return false;
    const QMetaMethod method = receiver->metaObject()->method(index);
    bool read = false;
    if (withId)
        method.invoke(receiver, Qt::DirectConnection, Q_RETURN_ARG(bool, read), Q_ARG(int, id),
                      Q_ARG(JsonText, result));
    else
        method.invoke(receiver, Qt::DirectConnection, Q_RETURN_ARG(bool, read), Q_ARG(JsonText, result));
    return read;
}
