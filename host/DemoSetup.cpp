// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "DemoSetup.h"

bool DemoSetup::start(const std::optional<Endpoint> &mopidy)
{
    DeviceState state = m_device.state();
    if (mopidy) {
        SourceState &source = state.sources.first();
        source.address = mopidy->urlHost();
        source.port = QString::number(mopidy->port);
    }
    m_device.setState(state);
    return m_device.listen();
}

QString DemoSetup::error() const
{
    return QStringLiteral("The simulated house cannot be started: %1.").arg(m_device.errorString());
}

DeviceAccess DemoSetup::access() const
{
    return {{m_device.host(), m_device.port()}, QStringLiteral("demo"), QStringLiteral("demo")};
}
