// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.12
import com.kestrum.halvoraint 1.0

Item {
    id: root

    property alias menu: menu
    property alias hostDevice: hostDevice
    property int playerButtonCalls: 0

    Item {
        id: menu

        property int currentIndex: -1
    }

    Item {
        id: container

        anchors.fill: parent
        clip: true
    }

    QtObject {
        id: hostDevice

        property string localIp: "127.0.0.1"
        property int localPort: devicePort
        property string username: ""
        property string password: ""
        property int posX: 0
        property int posY: 0

        signal requestConnect()
        signal requestDisconnect()
    }

    MainTabController {
        id: controller

        function playerButtonEnabled() {
            ++root.playerButtonCalls
        }

        menuListView: menu
        containerView: container
        Component.onCompleted: {
            if (screensFirst) {
                tabLoadingCompleted()
                initDevice(hostDevice)
            } else {
                initDevice(hostDevice)
                tabLoadingCompleted()
                hostDevice.requestConnect()
            }
            menu.currentIndex = 0
        }
    }
}
