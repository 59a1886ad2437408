// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"

SwipeCell {
    id: root

    property alias textLabel: label.text
    property alias textColor: label.color
    property alias detailTextLabel: detail.text
    property alias detailTextColor: detail.color
    property alias arrowVisible: chevron.visible
    property alias accessoryEnabled: accessory.enabled

    signal accessoryClicked()

    contentSlides: false

    LineLabel {
        id: label

        x: 15
        width: root.width - 25
        color: currentTheme.icons
        font.pixelSize: 17
    }

    LineLabel {
        id: detail

        anchors.bottom: parent.bottom
        x: 15
        width: root.width - 25
        font.pixelSize: 12
        verticalAlignment: Text.AlignVCenter
    }

    Chevron {
        id: chevron

        anchors { verticalCenter: parent.verticalCenter; right: parent.right; rightMargin: 13 }
    }

    MouseArea {
        id: accessory

        anchors.right: parent.right
        width: 60
        height: parent.height
        enabled: false
        onClicked: root.accessoryClicked()
    }
}
