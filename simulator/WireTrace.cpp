// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/WireTrace.h"

#include "simulator/DemoHouse.h"
#include "simulator/MusicServerSimulator.h"

namespace {

// Who has the digest of a login can log in with it, and traces get shown around.
QString withoutDigest(const QString &text)
{
    constexpr int digestAt = 3;
    QStringList fields = text.split(QLatin1Char('|'));
    if (fields.first() != QLatin1String("CONNECT") || fields.size() != 6)
        return text;
    fields[digestAt] = QStringLiteral("(digest)");
    return fields.join(QLatin1Char('|'));
}

} // namespace

WireTrace::WireTrace(DemoHouse *house, QObject *parent) : QObject(parent)
{
    DeviceSimulator *device = house->device();
    connect(device, &DeviceSimulator::messageReceived, this, [this](const QString &text) {
        Q_EMIT passed(QStringLiteral("device < ") + withoutDigest(text));
    });
    connect(device, &DeviceSimulator::messageSent, this,
            [this](const QString &text) { Q_EMIT passed(QStringLiteral("device > ") + text); });
    const QMap<int, MusicServerSimulator *> &servers = house->musicServers();
    for (auto server = servers.cbegin(); server != servers.cend(); ++server) {
        const QString name = QStringLiteral("music %1").arg(server.key());
        follow(server.value(), name);
        follow(server.value()->artwork(), name);
    }
    follow(house->artwork(), QStringLiteral("artwork"));
}

template<typename Peer>
void WireTrace::follow(Peer *peer, const QString &name)
{
    connect(peer, &Peer::textReceived, this,
            [this, name](const QString &text) { Q_EMIT passed(name + QLatin1String(" < ") + text); });
    connect(peer, &Peer::textSent, this,
            [this, name](const QString &text) { Q_EMIT passed(name + QLatin1String(" > ") + text); });
}
