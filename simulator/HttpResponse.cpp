// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/HttpResponse.h"

QByteArray HttpResponse::head() const
{
    QByteArray text = "HTTP/1.1 " + status + "\r\nContent-Type: " + contentType + "\r\n";
    if (!location.isEmpty())
        text += "Location: " + location + "\r\n";
    if (!isEndless)
        text += "Content-Length: " + QByteArray::number(announcedLength < 0 ? body.size() : announcedLength)
            + "\r\n";
    text += isEndless || closeAfter ? "Connection: close\r\n" : "Connection: keep-alive\r\n";
    return text + "\r\n";
}

QString HttpResponse::summary() const
{
    const QString size = isEndless ? QStringLiteral("bytes without end")
                                   : QStringLiteral("%1 bytes").arg(body.size());
    return QStringLiteral("%1, %2, %3")
        .arg(QString::fromLatin1(status), QString::fromLatin1(contentType), size);
}
