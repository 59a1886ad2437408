// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QtGlobal>

/// What the kernel knows of the open files of this process.
namespace OpenFiles {

/// Number of file descriptors.
int count();

/// Number of sockets of this process that are connected to that port of any host, also where the other side has ended
/// it already.
int socketsTo(quint16 port);

} // namespace OpenFiles
