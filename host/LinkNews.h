// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QPointer>

/**
 * What the client's link tells of itself, brought into the GUI thread for QML.
 *
 * The link tells some of it from its own thread. QML could listen to that itself, but then loses the memory of each
 * signal that is still on its way when the link goes. GUI thread.
 */
class LinkNews : public QObject
{
    Q_OBJECT
    /// The client's link, not owned; null for none, and after it has gone.
    Q_PROPERTY(QObject *link READ link WRITE setLink NOTIFY linkChanged)

public:
    using QObject::QObject;

    QObject *link() const { return m_link; }
    void setLink(QObject *link);

Q_SIGNALS:
    void linkChanged();
    void screenShown(bool show);
    void messageSet(const QString &message);
    void authenticationRequired();

private:
    QPointer<QObject> m_link;
};
