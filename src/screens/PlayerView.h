// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "model/Halvora.h"

#include <QQuickItem>

/**
 * The C++ side of the player screen: the device, the output it controls, the overlay for the link's messages and
 * the dialog that saves the queue. The rest is "qrc:/Qml/PlayerView.qml", whose root is one of these and which must
 * define loadOutputs() and prepareDisconnectSource().
 *
 * Made once by MainTabController, in the GUI thread, and deleted with it. It owns neither the
 * device, nor its outputs, nor the overlay.
 */
class PlayerView : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(Halvora *halvora READ halvora WRITE setHalvora NOTIFY halvoraChanged)
    Q_PROPERTY(
        Output *selectedOutput READ selectedOutput WRITE setSelectedOutput NOTIFY selectedOutputChanged)
    Q_PROPERTY(QQuickItem *connectionScreen READ connectionScreen WRITE setConnectionScreen NOTIFY
                   connectionScreenChanged)

public:
    explicit PlayerView(QQuickItem *parent = nullptr);

    /// The device; null, the default, while this tab is not on show.
    Halvora *halvora() const { return m_halvora; }
    void setHalvora(Halvora *halvora);
    /// The output on show; null by default. prepareDisconnectSource() runs while the old one is still set.
    Output *selectedOutput() const { return m_selectedOutput; }
    void setSelectedOutput(Output *output);
    /// The overlay item, with a text property "connText"; null by default.
    QQuickItem *connectionScreen() const { return m_connectionScreen; }
    void setConnectionScreen(QQuickItem *connectionScreen);

    /// Has `item`'s function updateImage(uri) called with the picture of that URL at hand, now or when it has been
    /// fetched.
    Q_INVOKABLE void requestImage(QString uri, QQuickItem *item);
    /// Opens the dialog that asks for a name for a playlist made from the queue.
    Q_INVOKABLE void showSavePlaylistDialog();

Q_SIGNALS:
    void halvoraChanged();
    void selectedOutputChanged();
    void connectionScreenChanged();

public Q_SLOTS:
    /// Takes a dialog off the screen and frees it. Null does nothing.
    void closeDialog(QQuickItem *dialog);
    /// Has the player of the selected output make a playlist of its queue; nothing without a player.
    void createPlaylist(QString name);
    void showConnectionScreen(bool show);
    void setConnectionScreenMessage(QString message);

private:
    Halvora *m_halvora = nullptr;
    Output *m_selectedOutput = nullptr;
    QQuickItem *m_connectionScreen = nullptr;
};
