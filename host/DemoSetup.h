// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "HostScene.h"

#include "simulator/DeviceSimulator.h"

#include <optional>

/// The simulated house of --demo, inside this process and on 127.0.0.1 alone. Lives in the GUI thread and outlives
/// the scene that is connected to it.
class DemoSetup final
{
public:
    /// Starts it; with `mopidy`, that music server stands behind the first source. False when a port cannot be
    /// had: error() is then one sentence.
    bool start(const std::optional<Endpoint> &mopidy);
    QString error() const;

    /// How the scene gets in.
    DeviceAccess access() const;

private:
    DeviceSimulator m_device;
};
