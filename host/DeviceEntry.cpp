// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "DeviceEntry.h"

#include "Endpoint.h"

namespace {

QString withoutBrackets(const QString &host)
{
    return host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']')) ? host.mid(1, host.size() - 2)
                                                                                : host;
}

bool isHost(const QString &host)
{
    return Endpoint::parse(Endpoint{host}.urlHost() + QStringLiteral(":1")).has_value();
}

} // namespace

DeviceEntry DeviceEntry::fromForm(const QVariantMap &typed)
{
    const auto text = [&typed](const char *field) {
        return typed.value(QLatin1String(field)).toString().trimmed();
    };
    DeviceEntry entry{{}, text("name"), withoutBrackets(text("host")), text("port").toInt(), text("user")};
    if (entry.name.isEmpty())
        entry.name = entry.host;
    return entry;
}

QString DeviceEntry::complaint() const
{
    const struct
    {
        bool wrong;
        QString sentence;
    } rules[] = {
        {host.isEmpty(), tr("The address of the device is missing.")},
        {!isHost(host), tr("\"%1\" is no address; a name or, for example, 192.168.1.20 is.").arg(host)},
        {port < 1 || port > 65535, tr("The port is a number from 1 to 65535.")},
        {user.isEmpty(), tr("The name of the user is missing.")},
        {user.contains(QLatin1Char('|')), tr("The name of the user cannot hold \"|\".")},
    };
    for (const auto &rule : rules) {
        if (rule.wrong)
            return rule.sentence;
    }
    return {};
}
