// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>

/**
 * One preset slot of the device and the playlist that is tied to it.
 *
 * Made by Halvora from the device's list, without a parent, in the GUI thread; a new list brings new entries.
 */
class PlaylistEntry : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int entryId READ entryId WRITE setEntryId NOTIFY entryIdChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QString playlistRef READ playlistRef WRITE setPlaylistRef NOTIFY playlistRefChanged)

public:
    explicit PlaylistEntry(QObject *parent = nullptr);

    /// The device's number of the slot, -1 by default.
    int entryId() const { return m_entryId; }
    void setEntryId(int entryId);
    /// Name of the slot, "" by default.
    QString name() const { return m_name; }
    void setName(const QString &name);
    /// Key of the tied playlist on its music server, "" for none.
    QString playlistRef() const { return m_playlistRef; }
    void setPlaylistRef(const QString &playlistRef);

Q_SIGNALS:
    void entryIdChanged();
    void nameChanged();
    void playlistRefChanged();

private:
    int m_entryId = -1;
    QString m_name;
    QString m_playlistRef;
};
