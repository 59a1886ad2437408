// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/HalvoraPlayer.h"
#include "support/RawMusicServer.h"
#include "support/Text.h"

#include <QJsonValue>

constexpr int never = 3600 * 1000; // milliseconds: a tick that the test makes by hand

/// The text of a request as the player sends it; `params` as JSON text, none for a request without any.
QString request(int id, const QString &method, const QString &params = QString());

/// The JSON value that a text stands for, and the text of a value: "undefined" for none.
QJsonValue json(const QString &text);
QString textOf(const QJsonValue &value);

/// Everything of the mirror that a reply can change, on one line.
QString stateOf(HalvoraPlayer *player);

/// A track as servers describe it.
extern const QString track;

/**
 * Takes replies in each of the two forms and records them as text.
 */
class Receiver final : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void browseAnything(int id, QJsonValue v) { calls << "browse %1 "_s.arg(id) + textOf(v); }
    Q_INVOKABLE void imagesReceived(QJsonValue v) { calls << "images "_s + textOf(v); }
    Q_INVOKABLE void BrowseInCapitals(QJsonValue v) { calls << "capital "_s + textOf(v); }

    QStringList calls;
};

/**
 * A player on a server that says only what it is told, for the test's thread. Ticks are made by hand; `retry` is
 * the shorter of the two delays before a new attempt, in milliseconds.
 */
struct Studio
{
    explicit Studio(int retry = never);

    void connect();
    void settle(); ///< until the player has read all that was sent to it
    void say(const QString &text);
    QStringList sent(); ///< what has arrived since the last call
    QStringList sentMethods();
    QStringList asked(); ///< what has arrived, as method and parameters: "core.library.browse {"uri":null}"

    RawMusicServer server;
    HalvoraPlayer player;
};

struct ConnectedStudio final : Studio
{
    ConnectedStudio() { connect(); }
};
