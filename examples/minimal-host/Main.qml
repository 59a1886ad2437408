// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0
import QtQuick 2.5
import QtQuick.Window 2.2
import com.kestrum.halvoraint 1.0
Window {
    width: 450; height: 690; visible: true
    QtObject {
        id: device
        property string localIp: access[0]; property int localPort: access[1]
        property string username: access[2]; property string password: access[3]
        property int posX: 0; property int posY: 0; signal requestConnect(); signal requestDisconnect()
    }
    MainTabController {
        function playerButtonEnabled() { menu.playerEnabled = true }
        menuListView: menu; containerView: container
        Component.onCompleted: { tabLoadingCompleted(); initDevice(device); showIcon(); menu.currentIndex = 0 }
        Item { id: container; anchors.fill: parent; clip: true }
    }
    ListView {
        id: menu
        property bool playerEnabled: false
        y: 640; width: 450; height: 50; orientation: Qt.Horizontal; currentIndex: -1; model: ["Outputs", "Player"]
        delegate: Text {
            width: 225; height: 50; text: modelData; enabled: index === 0 || menu.playerEnabled
            MouseArea { anchors.fill: parent; onClicked: menu.currentIndex = index }
        }
    }
}
