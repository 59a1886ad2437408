// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QtGlobal>

class QNetworkReply;

/// Keeps a peer from filling the memory with one answer. To be called in the reply's thread; whoever is told
/// that the reply has finished is to free it with deleteLater().
namespace BodyBound {

/// Aborts `reply` once its body is announced, or turns out, to be larger than `bytes`. If the end of an
/// unannounced body comes along with the excess, up to 1 MiB of it is let through.
void set(QNetworkReply *reply, qint64 bytes);

/// Aborts `reply` without Qt's warning of an end that the network has told meanwhile. Thread and deletion as above.
void end(QNetworkReply *reply);

/// Whether the reply was ended for being too large.
bool isExceeded(const QNetworkReply *reply);

} // namespace BodyBound
