// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// The client's menu: the outputs are tab 0, the player is tab 1. No tab is current at first.
Rectangle {
    id: root

    property int currentIndex: -1
    property bool playerEnabled: false
    property QtObject theme: null

    height: 70
    color: theme ? theme.menu : "black"

    TabButton {
        width: Math.round(root.width / 2)
        height: root.height
        picture: "output"
        accent: root.theme ? root.theme.imgSuffix : ""
        selected: root.currentIndex === 0
        onClicked: root.currentIndex = 0
    }

    TabButton {
        x: Math.round(root.width / 2)
        width: root.width - x
        height: root.height
        picture: "halvora"
        accent: root.theme ? root.theme.imgSuffix : ""
        enabled: root.playerEnabled
        selected: root.currentIndex === 1
        onClicked: root.currentIndex = 1
    }

    Rectangle {
        width: parent.width
        height: 1
        color: root.theme ? root.theme.header : "black"
    }
}
