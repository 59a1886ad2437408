// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/RpcTable.h"

#include <QJsonArray>

namespace {

RpcReply failure(int code, const QString &message, const QJsonValue &data)
{
    RpcReply reply;
    reply.error = {
        {QStringLiteral("code"), code}, {QStringLiteral("message"), message}, {QStringLiteral("data"), data}};
    return reply;
}

QJsonObject exception(const QString &type, const QString &message)
{
    return {{QStringLiteral("type"), type},
            {QStringLiteral("message"), message},
            {QStringLiteral("traceback"), QStringLiteral("Traceback (most recent call last): ...")}};
}

} // namespace

RpcReply RpcReply::applicationError(const QString &type, const QString &message)
{
    return failure(0, QStringLiteral("Application error"), exception(type, message));
}

RpcReply RpcReply::invalidParameters(const QString &message)
{
    return failure(-32602, QStringLiteral("Invalid params"), exception(QStringLiteral("TypeError"), message));
}

RpcReply RpcReply::invalidRequest(const QString &message)
{
    return failure(-32600, QStringLiteral("Invalid Request"), message);
}

RpcReply RpcReply::unknownMethod(const QString &method)
{
    return failure(-32601, QStringLiteral("Method not found"),
                   QStringLiteral("No object found at '%1'").arg(method.section(QLatin1Char('.'), 0, -2)));
}

void RpcTable::add(const QString &method, const QStringList &required, const QStringList &optional,
                   const Handler &handler)
{
    m_methods.insert(method, {required + optional, required.size(), handler});
}

RpcReply RpcTable::call(const QString &method, const QJsonValue &parameters) const
{
    const auto found = m_methods.constFind(method);
    if (found == m_methods.constEnd())
        return RpcReply::unknownMethod(method);
    const QString shortName = method.section(QLatin1Char('.'), -1);
    const QStringList &known = found->parameters;
    QJsonObject named = parameters.toObject();
    const QJsonArray places = parameters.toArray();
    if (places.size() > known.size())
        return RpcReply::invalidParameters(
            QStringLiteral("%1() got too many positional arguments").arg(shortName));
    for (int place = 0; place < places.size(); ++place)
        named.insert(known.at(place), places.at(place));
    const QStringList names = named.keys();
    for (const QString &name : names) {
        if (!known.contains(name))
            return RpcReply::invalidParameters(
                QStringLiteral("%1() got an unexpected keyword argument '%2'").arg(shortName, name));
    }
    for (const QString &name : known.mid(0, found->requiredCount)) {
        if (!named.contains(name))
            return RpcReply::invalidParameters(
                QStringLiteral("%1() missing 1 required positional argument: '%2'").arg(shortName, name));
    }
    return found->handler(named);
}
