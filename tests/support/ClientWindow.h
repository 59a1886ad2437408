// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "simulator/DeviceSimulator.h"
#include "simulator/MusicServerSimulator.h"

#include <QQuickItem>
#include <QQuickView>

/**
 * The client as a person meets it: a real window with the two tabs in it, in front of a simulated device with
 * outputs 3, 7, 12 and sources 2 (music server), 9 (none). Everything is done by mouse events on the window, and
 * read from its items or pixels, or from what has reached the peers.
 */
class ClientWindow
{
public:
    /// Outputs 3 and 12 play source 2, output 7 plays source 9. The music server stands but has nothing to play.
    explicit ClientWindow(const Catalogue &catalogue = Catalogue());
    ~ClientWindow();

    /// Shows the window; `screensFirst` is the usual order of a host. False if it never showed.
    bool show(bool screensFirst = true, const QSize &size = QSize(450, 640));
    /// Shows the window and the outputs, and waits for the device's state.
    bool showOutputs();
    /// The same, and on to the player of output 3 by a click on its cover, with a song that plays.
    bool showPlayer();

    void selectTab(int index);
    int tab() const;
    int playerButtonCalls() const;
    void background(); ///< the host tells the client to rest
    void foreground();

    void click(const QPoint &place);
    void press(const QPoint &place);
    void moveTo(const QPoint &place);
    void release(const QPoint &place);
    /// Clicks on the middle of the label with that text, when it has come; false if it never came.
    bool clickOn(const QString &text);
    void type(const QString &text); ///< into what has the focus

    /// The label in the window with that text; null if there is none.
    QQuickItem *itemWithText(const QString &text) const;
    bool showsText(const QString &text) const { return itemWithText(text) != nullptr; }
    /// All texts in the window, from top to bottom and then from left to right. Empty ones are left out.
    QStringList texts() const;
    /// The visible item of that type ("HorizontalSlider") at place `which`, ordered as texts() are, a pop-up that waits
    /// below the window included; null if there are not so many.
    QQuickItem *item(const QString &type, int which = 0) const;
    /// The colour of one pixel as drawn.
    QColor pixel(const QPoint &place);
    QImage picture();

    /// Commands that have reached the device, without polls and without repeats of the one before, since the last
    /// call of forgetCommands().
    QStringList commands() const;
    QString lastCommand() const
    {
        return commands().value(commands().size() - 1);
    } ///< null while there is none
    void forgetCommands();

    /// What has reached the music server since the last call of forgetRequests(), as method and parameters, without what
    /// the client asks by itself to keep its mirror.
    QStringList requests() const;
    void forgetRequests() { server.clearRequests(); }

    QQuickView view;
    DeviceSimulator device;
    MusicServerSimulator server;

private:
    QList<QQuickItem *> itemsOnShow() const; // in the order of texts()
    QObject *scene(const char *name) const;
};

/// The same, on show with the outputs or the player; where that fails, so does the test.
struct OutputsWindow final : ClientWindow
{
    OutputsWindow();
};

struct PlayerWindow final : ClientWindow
{
    explicit PlayerWindow(const Catalogue &catalogue = Catalogue());
};
