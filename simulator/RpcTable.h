// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QHash>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>

#include <functional>

/// The outcome of one call: a result, or an error object when that is not empty.
struct RpcReply
{
    QJsonValue result = QJsonValue::Null;
    QJsonObject error;

    /// The error object for an exception in the server's code, with its kind ("ValidationError") and message.
    static RpcReply applicationError(const QString &type, const QString &message);
    static RpcReply invalidParameters(const QString &message);
    static RpcReply unknownMethod(const QString &method);
};

/**
 * The methods of the simulated music server by name. Filled once by the server, which owns it; calls run at
 * once on the caller's thread.
 */
class RpcTable final
{
public:
    /// Gets the named parameters that were sent, and nothing else.
    using Handler = std::function<RpcReply(const QJsonObject &parameters)>;

    /// Adds or replaces a method with the parameters that it knows, in their order.
    void add(const QString &method, const QStringList &parameters, const Handler &handler);

    /// Runs a method. Parameters come by name or by place. An unknown method, an unknown name or too many
    /// places give the errors that the server gives.
    RpcReply call(const QString &method, const QJsonValue &parameters) const;

private:
    struct Method
    {
        QStringList parameters;
        Handler handler;
    };

    QHash<QString, Method> m_methods;
};
