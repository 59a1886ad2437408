// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/HeldReplies.h"

#include "support/Text.h"
#include "support/Waiting.h"

#include <QJsonDocument>

#include <utility>

HeldReplies::HeldReplies(MusicServerSimulator *server, const QStringList &methods)
    : m_server(server),
      m_methods(methods),
      m_connection(QObject::connect(server, &MusicServerSimulator::requestReceived, server,
                                    [this](const QString &method) {
                                        if (m_methods.contains(method))
                                            m_held.append(m_server->requests().constLast());
                                    }))
{
    m_server->faults().methods = methods;
    m_server->faults().noReply = true;
}

HeldReplies::~HeldReplies()
{
    QObject::disconnect(m_connection);
    m_server->faults().methods.clear();
    m_server->faults().noReply = false;
}

bool HeldReplies::wait(int requests) const
{
    return Waiting::comes([&] { return m_held.size() >= requests; });
}

bool HeldReplies::answer(const QJsonObject &reply, int copies)
{
    const QList<ReceivedRequest> held = std::exchange(m_held, {});
    for (const ReceivedRequest &request : held) {
        QJsonObject message = reply;
        if (reply.isEmpty())
            message.insert("result"_s, m_server->methods().call(request.method, request.parameters).result);
        message.insert("id"_s, request.id);
        for (int copy = 0; copy < copies; ++copy)
            m_server->sendText(QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact)));
    }
    return areTaken(m_server);
}

// The client takes messages in order, and asks back at this event. It asks so by itself now and then, too, and what it
// asked for last is still to be answered: the third question is behind all that.
bool HeldReplies::areTaken(MusicServerSimulator *server)
{
    constexpr int questions = 3;
    const QString question = "core.tracklist.get_random"_s;
    for (int i = 0; i < questions; ++i) {
        const int before = server->requestCount(question);
        server->sendEvent("options_changed"_s);
        if (!Waiting::comes([&] { return server->requestCount(question) > before; }))
            return false;
    }
    return true;
}
