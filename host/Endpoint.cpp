// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Endpoint.h"

#include <QHostAddress>
#include <QRegularExpression>

QString Endpoint::urlHost() const
{
    return host.contains(QLatin1Char(':')) ? QLatin1Char('[') + host + QLatin1Char(']') : host;
}

std::optional<Endpoint> Endpoint::parse(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral(R"(\A(?:\[(?<six>[^\[\]]+)\]|(?<name>[A-Za-z0-9._-]+)):(?<port>[0-9]{1,5})\z)"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QString six = match.captured(QStringLiteral("six"));
    if (!six.isEmpty() && QHostAddress(six).protocol() != QAbstractSocket::IPv6Protocol)
        return std::nullopt;
    const int port = match.captured(QStringLiteral("port")).toInt();
    if (port < 1 || port > 65535)
        return std::nullopt;
    return Endpoint{six.isEmpty() ? match.captured(QStringLiteral("name")) : six, quint16(port)};
}
