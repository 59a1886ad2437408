// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "Endpoint.h"

/// How to reach and enter the device.
struct DeviceAccess
{
    Endpoint address;
    QString user;
    QString password;
};
