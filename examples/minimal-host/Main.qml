// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0
import QtQuick 2.5
import QtQuick.Window 2.2
import com.kestrum.halvoraint 1.0

Window {
    width: 450; height: 640; visible: true

    Item { id: menu; property int currentIndex: -1 } // to be written by tabs of your own

    QtObject {
        id: device
        property string localIp: access[0]
        property int localPort: access[1]
        property string username: access[2]
        property string password: access[3]
        property int posX: 0
        property int posY: 0
        signal requestConnect()
        signal requestDisconnect()
    }

    MainTabController {
        function playerButtonEnabled() {}
        menuListView: menu; containerView: container
        Component.onCompleted: { tabLoadingCompleted(); initDevice(device); showIcon(); menu.currentIndex = 0 }
        Item { id: container; anchors.fill: parent; clip: true }
    }
}
