// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0

// The client at one device: its screens above, the tabs below. The controller covers both, since the client puts
// its dialogs into the item around the container, and those are meant to lie over the tabs too.
MainTabController {
    id: root

    property QtObject host
    property int windowVisibility
    readonly property alias connection: connection.words // its state

    signal settingsRequested()
    signal answered()

    function playerButtonEnabled() {
        tabs.playerEnabled = true;
    }

    // To be called before it goes: the client keeps its screens, and takes off what they show.
    function leave() {
        tabs.currentIndex = -1;
    }

    onFirstConnected: {
        answered();
    }

    Component.onCompleted: {
        tabLoadingCompleted();
        initDevice(device);
        showIcon();
        // It has placed itself at a size of its own.
        width = Qt.binding(() => parent.width);
        height = Qt.binding(() => parent.height);
        tabs.currentIndex = 0; // only a change after all this brings up the first screen
    }

    visible: false
    menuListView: tabs
    containerView: container

    QtObject {
        id: device

        property string localIp: root.host.deviceHost
        property int localPort: root.host.devicePort
        property string username: root.host.deviceUser
        property string password: root.host.devicePassword
        property int posX: 0
        property int posY: 0

        signal requestConnect()
        signal requestDisconnect()
    }

    ConnectionState {
        id: connection

        host: root.host
        screen: container.children.length > 0 ? container.children[0] : null
    }

    MusicServers {
        id: musicServers

        objectName: "musicServers"
        model: connection.model
        watching: presence.foreground && connection.connected
    }

    // A device that is lost is back within a second, as a rule.
    Timer {
        id: hesitation

        interval: 1500 // milliseconds
        running: !connection.connected && !connection.covered
    }

    Presence {
        id: presence

        objectName: "presence"
        windowVisibility: root.windowVisibility
        onForegroundChanged: {
            connection.begin();
            if (foreground)
                device.requestConnect();
            else
                device.requestDisconnect();
        }
    }

    Item {
        id: container

        anchors { left: parent.left; right: parent.right; top: parent.top; bottom: notice.top }
        clip: true
    }

    Notice {
        id: notice

        anchors { left: parent.left; right: parent.right; bottom: tabs.top }
        height: implicitHeight
        problem: root.host.problem
        passing: connection.connected ? musicServers.words
               : connection.covered || hesitation.running ? "" : connection.words
        onDismissed: root.host.dismissProblem()
    }

    TabBar {
        id: tabs

        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        onSettingsRequested: root.settingsRequested()
    }
}
