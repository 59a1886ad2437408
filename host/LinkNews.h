// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QPointer>

/**
 * What the client's link tells of itself, brought into the GUI thread for QML.
 *
 * The link tells some of it from its own thread. QML could listen to that itself, but then loses the memory of each
 * signal that is still on its way when the link goes. Made by QML, lives in the GUI thread.
 */
class LinkNews : public QObject
{
    Q_OBJECT
    /// The client's link, not owned; null for none, and, without a word, after it has gone. An object without a link's
    /// signals is never heard, and Qt warns of it.
    Q_PROPERTY(QObject *link READ link WRITE setLink NOTIFY linkChanged)

public:
    using QObject::QObject;

    QObject *link() const { return m_link; }
    void setLink(QObject *link);

Q_SIGNALS:
    void linkChanged();
    void screenShown(bool show);             ///< true: there is no connection
    void messageSet(const QString &message); ///< what the link does, in its own words
    void authenticationRequired();           ///< the device has refused the name or the password

private:
    QPointer<QObject> m_link;
};
