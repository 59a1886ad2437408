// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtQuick.Window 2.2
import com.kestrum.halvoraint 1.0

// The window: the client's screens above, the tabs below. The controller covers both, since the client puts its
// dialogs into the item around the container, and those are meant to lie over the tabs too.
Window {
    id: window

    property string deviceHost
    property int devicePort
    property string deviceUser
    property string devicePassword

    // Published by the client while it loads; the fallback is what shows until then.
    readonly property QtObject theme: typeof currentTheme === "undefined" ? null : currentTheme

    width: 450
    height: 640 + tabs.height
    minimumWidth: 340
    minimumHeight: 520
    visible: true
    title: "Halvora"
    color: theme ? theme.background : "black"

    Component.onCompleted: {
        controller.tabLoadingCompleted();
        controller.initDevice(device);
        controller.showIcon();
        // Not the content item's size: that is 0 until the window is shown, and the first screen would take it over.
        controller.width = Qt.binding(() => window.width);
        controller.height = Qt.binding(() => window.height);
        tabs.currentIndex = 0; // only a change after all this brings up the first screen
    }

    QtObject {
        id: device

        property string localIp: window.deviceHost
        property int localPort: window.devicePort
        property string username: window.deviceUser
        property string password: window.devicePassword
        property int posX: 0
        property int posY: 0

        signal requestConnect()
        signal requestDisconnect()
    }

    Presence {
        objectName: "presence"
        windowVisibility: window.visibility
        onForegroundChanged: foreground ? device.requestConnect() : device.requestDisconnect()
    }

    MainTabController {
        id: controller

        function playerButtonEnabled() {
            tabs.playerEnabled = true;
        }

        visible: false
        menuListView: tabs
        containerView: container

        Item {
            id: container

            anchors { left: parent.left; right: parent.right; top: parent.top; bottom: tabs.top }
            clip: true
        }

        TabBar {
            id: tabs

            anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
            theme: window.theme
        }
    }
}
