// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/PictureAddress.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

bool isServerRelative(const QString &address)
{
    return address.startsWith(QLatin1Char('/')) && !address.startsWith(QLatin1String("//"));
}

QJsonValue completedPicture(const QJsonValue &value, const QString &server)
{
    QJsonObject picture = value.toObject();
    const QString address = picture.value(QLatin1String("uri")).toString();
    if (!isServerRelative(address))
        return value;
    picture.insert(QStringLiteral("uri"), server + address);
    return picture;
}

QJsonValue completedList(const QJsonValue &value, const QString &server)
{
    if (!value.isArray())
        return value;
    QJsonArray completed;
    const QJsonArray pictures = value.toArray();
    for (const QJsonValue &picture : pictures)
        completed.append(completedPicture(picture, server));
    return completed;
}

} // namespace

QJsonValue PictureAddress::completed(const QJsonValue &pictures, const QString &host, const QString &port)
{
    if (!pictures.isObject())
        return pictures;
    const QString server = QLatin1String("http://") + host + QLatin1Char(':') + port;
    QJsonObject completed = pictures.toObject();
    for (auto it = completed.begin(); it != completed.end(); ++it)
        it.value() = completedList(it.value(), server);
    return completed;
}
