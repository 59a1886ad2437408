// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import halvora.host 1.0

// The client's menu: the outputs are tab 0, the player is tab 1. No tab is current at first. At its end, the way to the
// host's settings.
Rectangle {
    id: root

    property int currentIndex: -1
    property bool playerEnabled: false

    signal settingsRequested()

    readonly property int tabWidth: Math.round((width - settings.width) / 2)

    height: 70
    color: HostTheme.menu

    TabButton {
        id: outputs

        objectName: "outputsTab"
        KeyNavigation.right: player
        width: root.tabWidth
        height: root.height
        picture: "output"
        accent: HostTheme.imgSuffix
        selected: root.currentIndex === 0
        onClicked: root.currentIndex = 0
    }

    TabButton {
        id: player

        objectName: "playerTab"
        KeyNavigation.right: settings
        x: root.tabWidth
        width: root.width - settings.width - x
        height: root.height
        picture: "halvora"
        accent: HostTheme.imgSuffix
        enabled: root.playerEnabled
        selected: root.currentIndex === 1
        onClicked: root.currentIndex = 1
    }

    TabButton {
        id: settings

        objectName: "settingsButton"
        x: root.width - width
        width: 85
        height: root.height
        picture: "settings"
        accent: HostTheme.imgSuffix
        onClicked: root.settingsRequested()
    }

    Rectangle {
        width: parent.width
        height: 1
        color: HostTheme.header
    }
}
