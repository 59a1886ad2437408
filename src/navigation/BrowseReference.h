// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

/**
 * One request for details or pictures of rows: who asked, and for what.
 *
 * Made by a BrowseListView, in the GUI thread. Whoever sends the request adopts it as its child and frees it behind the
 * answer; one that nobody has adopted goes with the next turn of the event loop.
 */
class BrowseReference final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    QString type;           ///< the section's key, "" by default
    QStringList uris;       ///< keys of the rows
    QPointer<QObject> view; ///< the BrowseListView that asked; null when it is gone
};
