// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>

/**
 * Address and name of a playlist, as a type that QML may name. The library has no use for it: what a player lists are
 * PlayerItem objects. Owned by whoever makes it, in the GUI thread.
 */
class Playlist : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString uri READ uri WRITE setUri NOTIFY uriChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)

public:
    explicit Playlist(QObject *parent = nullptr);

    /// "" by default.
    QString uri() const { return m_uri; }
    void setUri(const QString &uri);
    /// "" by default.
    QString name() const { return m_name; }
    void setName(const QString &name);

Q_SIGNALS:
    void uriChanged();
    void nameChanged();

private:
    QString m_uri;
    QString m_name;
};
