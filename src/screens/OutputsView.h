// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "model/Halvora.h"

#include <QQuickItem>

/**
 * The C++ side of the outputs screen: the device it shows and the overlay for the link's messages. The rest is
 * "qrc:/Qml/OutputsView.qml", whose root is one of these and which must define loadOutputs().
 *
 * Made once by MainTabController, in the GUI thread, and deleted with it. It owns neither the
 * device nor the overlay.
 */
class OutputsView : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(Halvora *halvora READ halvora WRITE setHalvora NOTIFY halvoraChanged)
    Q_PROPERTY(QQuickItem *connectionScreen READ connectionScreen WRITE setConnectionScreen NOTIFY
                   connectionScreenChanged)

public:
    explicit OutputsView(QQuickItem *parent = nullptr);

    /// The device; null, the default, while this tab is not on show.
    Halvora *halvora() const { return m_halvora; }
    void setHalvora(Halvora *halvora);
    /// The overlay item, with a text property "connText"; null by default.
    QQuickItem *connectionScreen() const { return m_connectionScreen; }
    void setConnectionScreen(QQuickItem *connectionScreen);

    /// Has `item`'s function updateImage(uri) called with the picture of that URL at hand, now or when it has been
    /// fetched.
    Q_INVOKABLE void requestImage(QString uri, QQuickItem *item);

Q_SIGNALS:
    void halvoraChanged();
    void connectionScreenChanged();

public Q_SLOTS:
    void showConnectionScreen(bool show);
    void setConnectionScreenMessage(QString message);

private:
    Halvora *m_halvora = nullptr;
    QQuickItem *m_connectionScreen = nullptr;
};
