// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "player/PlayerItem.h"

#include <QStringList>

/**
 * One album of a list. QML reaches it through a PlayerItem and reads the further properties by name.
 * Lifetime and thread as for PlayerItem.
 */
class Album final : public PlayerItem
{
    Q_OBJECT
    Q_PROPERTY(QStringList artistsUri READ artistsUri WRITE setArtistsUri NOTIFY artistsUriChanged)
    Q_PROPERTY(QStringList artists READ artists WRITE setArtists NOTIFY artistsChanged)
    Q_PROPERTY(QString artistsString READ artistsString WRITE setArtistsString NOTIFY artistsStringChanged)

public:
    explicit Album(QObject *parent = nullptr);

    /// Keys of the artists. Not parallel to artists(): an artist may lack either.
    QStringList artistsUri() const { return m_artistsUri; }
    void setArtistsUri(const QStringList &artistsUri);
    /// Names of the artists.
    QStringList artists() const { return m_artists; }
    void setArtists(const QStringList &artists);
    /// The names joined with ", ".
    QString artistsString() const { return m_artistsString; }
    void setArtistsString(const QString &artistsString);

Q_SIGNALS:
    void artistsUriChanged();
    void artistsChanged();
    void artistsStringChanged();

private:
    QStringList m_artistsUri;
    QStringList m_artists;
    QString m_artistsString;
};
