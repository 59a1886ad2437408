// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "images/BodyBound.h"

#include <QCoreApplication>
#include <QEvent>
#include <QNetworkReply>
#include <QVariant>

namespace {

const char tooLarge[] = "tooLarge"; // marks a reply that was cut off

constexpr qint64 readAhead = 1024 * 1024; // bytes; Qt stops reading somewhat below the size of the buffer

void endBeyond(QNetworkReply *reply, qint64 bytes, qint64 bound)
{
    if (bytes <= bound || reply->isFinished())
        return;
    reply->setProperty(tooLarge, true);
    BodyBound::end(reply);
}

} // namespace

void BodyBound::set(QNetworkReply *reply, qint64 bytes)
{
    // The read buffer stops the network from running ahead of the look at it.
    reply->setReadBufferSize(bytes + readAhead);
    QObject::connect(reply, &QNetworkReply::metaDataChanged, reply, [reply, bytes] {
        endBeyond(reply, reply->header(QNetworkRequest::ContentLengthHeader).toLongLong(), bytes);
    });
    QObject::connect(reply, &QNetworkReply::readyRead, reply,
                     [reply, bytes] { endBeyond(reply, reply->bytesAvailable(), bytes); });
}

void BodyBound::end(QNetworkReply *reply)
{
    reply->abort(); // its receiver schedules the deletion
    // What is posted from now on stands behind the deletion.
    QCoreApplication::removePostedEvents(reply, QEvent::MetaCall);
}

bool BodyBound::isExceeded(const QNetworkReply *reply)
{
    return reply->property(tooLarge).toBool();
}
