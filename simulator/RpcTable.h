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
    bool endsConnection =
        false; ///< the server breaks down over the request: no reply, and the WebSocket ends

    /// The error object for an exception in the server's code, with its kind ("ValidationError") and message.
    static RpcReply applicationError(const QString &type, const QString &message);
    static RpcReply invalidParameters(const QString &message);
    /// The error object for a text that is JSON but no request.
    static RpcReply invalidRequest(const QString &message);
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

    /// Adds or replaces a method with the parameters that it knows, in their order: those that it must be given,
    /// then those that may be left out.
    void add(const QString &method, const QStringList &required, const Handler &handler)
    {
        add(method, required, {}, handler);
    }
    void add(const QString &method, const QStringList &required, const QStringList &optional,
             const Handler &handler);

    /// Runs a method. Parameters come by name or by place. An unknown method, an unknown name, too many places or
    /// a required parameter that is missing give the errors that the server gives.
    RpcReply call(const QString &method, const QJsonValue &parameters) const;

private:
    struct Method
    {
        QStringList parameters;
        int requiredCount = 0;
        Handler handler;
    };

    QHash<QString, Method> m_methods;
};
