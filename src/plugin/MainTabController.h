// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "link/HalvoraConnThread.h"

#include <QPointer>
#include <QQuickItem>

#include <memory>
#include <vector>

class Halvora;
class OutputsView;
class PlayerView;

/**
 * The root of the client in the host's scene: owns the link, makes the device model and the two screens, and
 * switches between them.
 *
 * Made by the host's QML, in the GUI thread, where everything here runs. The link and the screens
 * end with it; the device models that it has made, then, when QML has let go of them. The host gives it a menu and a container
 * (not owned), a QML function playerButtonEnabled() on the instance, and calls tabLoadingCompleted() once and
 * initDevice() for each device, in either order; docs/host-contract.md tells the whole of it.
 */
class MainTabController : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QQuickItem *menuListView READ menuListView WRITE setMenuListView NOTIFY menuListViewChanged)
    Q_PROPERTY(
        QQuickItem *containerView READ containerView WRITE setContainerView NOTIFY containerViewChanged)

public:
    explicit MainTabController(QQuickItem *parent = nullptr);
    /// Stops the link and all players there have been, and deletes the two screens. The models stay for as long as
    /// QML refers to them.
    ~MainTabController() override;

    /// The tab menu: an item with an integer `currentIndex`, 0 for the outputs and 1 for the player, and its change
    /// signal. Null by default. A tab appears at a change of the index, not at this call.
    QQuickItem *menuListView() const { return m_menuListView; }
    void setMenuListView(QQuickItem *item);
    /// The item whose child the shown screen becomes. Null by default: then no screen shows.
    QQuickItem *containerView() const { return m_containerView; }
    void setContainerView(QQuickItem *item);

    /// Takes the device to connect to, starts the link and follows the object's requestConnect() and
    /// requestDisconnect(). `device` has the properties localIp, localPort, username, password, posX and posY; it is
    /// not owned and is read now. Blocks while an earlier link ends. Null does nothing.
    Q_INVOKABLE void initDevice(QObject *device);
    /// Places this item at posX, posY of the device object, 450 by 640 pixels, and shows it. After initDevice().
    Q_INVOKABLE void showIcon();
    /// Publishes the image provider and the context properties, and makes the screens. Once, when this item has
    /// its QML engine.
    Q_INVOKABLE void tabLoadingCompleted();

Q_SIGNALS:
    void menuListViewChanged();
    void containerViewChanged();
    void firstConnected(); ///< after each start of the link, when the device's state is there

public Q_SLOTS:
    void menuListViewIndexChanged();
    /// Shows the player tab with the output of that device index; -1 does nothing. Needs a device.
    void openPlayerViewWithOutput(int output);
    void playerViewOutputChanged();
    /// Stops the link and the players that the sources have now. Blocks while the link ends.
    void didEnterBackground();
    /// Starts them again.
    void didEnterForeground();

private:
    enum Tab { NoTab = -1, OutputsTab = 0, PlayerTab = 1 };

    void publishTheme();
    void loadViews();
    template<typename View>
    View *newView(const QString &url);
    template<typename View>
    void takeDown(View *view);
    template<typename View>
    void bringUp(View *view);

    std::vector<std::unique_ptr<Device>> m_records; // of all devices; ahead of the link, which reads the last one
    HalvoraConnThread m_link;
    QList<Halvora *> m_halvoras;  // of all devices
    Halvora *m_halvora = nullptr; // of the last one
    QPointer<QQuickItem> m_menuListView;
    QPointer<QQuickItem> m_containerView;
    OutputsView *m_outputsView = nullptr;
    PlayerView *m_playerView = nullptr;
    QPointer<QObject> m_hostDevice;
    int m_currentTab = NoTab;
};
