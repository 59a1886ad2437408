// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QStringList>

#include <QJsonArray>
#include <QJsonObject>

/// Requests to the music server as ClientWindow::requests() writes them.
namespace Requests {

QString call(const QString &method, const QJsonObject &parameters = {});
QString ofUri(const QString &method, const QString &uri);
QString ofUris(const QString &method, const QStringList &uris);
QString add(const QStringList &uris, int position); ///< to the queue
QString play(int tlid);
QString searchCall(const QString &text, const QJsonValue &uris);
/// For the position of the current track.
QString askPosition();

} // namespace Requests
