// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QHash>
#include <QObject>

/**
 * One entry of a music server's library or queue: what QML shows of a directory, a playlist or an artist, and
 * the base of Song and Album.
 *
 * Made by whoever parses the server's answer, without a parent, in the GUI thread. A list that drops it hands it to
 * Reclaimer, as a delegate may still show it; who keeps one beyond that holds a QPointer.
 */
class PlayerItem : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString uri READ uri WRITE setUri NOTIFY uriChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QString type READ type WRITE setType NOTIFY typeChanged)
    Q_PROPERTY(QString smallImgPath READ smallImgPath NOTIFY smallImgPathChanged)
    Q_PROPERTY(QString mediumImgPath READ mediumImgPath NOTIFY mediumImgPathChanged)
    Q_PROPERTY(QString largeImgPath READ largeImgPath NOTIFY largeImgPathChanged)

public:
    explicit PlayerItem(QObject *parent = nullptr);
    PlayerItem(QString &&uri, QString &&name);

    /// The server's key for the entry, "" by default.
    QString uri() const { return m_uri; }
    void setUri(const QString &uri);
    /// Display name, "" by default.
    QString name() const { return m_name; }
    void setName(const QString &name);
    /// "track", "album", "artist", "directory" or "playlist", as the server said it; "" where it did not.
    QString type() const { return m_type; }
    void setType(const QString &type);

    /// Address of the picture for a list row: the smallest below 100000 pixels; else any. "" without pictures.
    QString smallImgPath() const;
    /// Address of the picture for the player: the largest from 300 to 599 pixels; else any. "" without pictures.
    QString mediumImgPath() const;
    /// Address of the largest picture from 500 pixels; else any. "" without pictures.
    QString largeImgPath() const;

    /// Width in pixels to address. Never null; part of the item and filled by the handlers of the answers.
    QHash<int, QString> *const images = &m_images;

Q_SIGNALS:
    void uriChanged();
    void nameChanged();
    void typeChanged();
    // Nobody emits these three: pictures arrive behind currentSongImageChanged(), imagesDownloaded() and the
    // like, after which the reader reads again.
    void smallImgPathChanged();
    void mediumImgPathChanged();
    void largeImgPathChanged();

private:
    QHash<int, QString> m_images;
    QString m_uri;
    QString m_name;
    QString m_type;
};
