// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "../Elements"

Item {
    id: root

    property bool selected: false
    property alias textLabel: label.text
    property alias detailTextLabel: detail.text

    signal clicked()

    height: 60

    LineLabel {
        id: label

        x: 15
        y: 10
        width: parent.width - 45
        color: root.selected ? currentTheme.highlight : currentTheme.icons
        font.pixelSize: 17
    }

    LineLabel {
        id: detail

        anchors { bottom: parent.bottom; bottomMargin: 10; left: label.left; right: label.right }
        height: implicitHeight
        font.pixelSize: 12
    }

    Rectangle {
        anchors { verticalCenter: parent.verticalCenter; right: parent.right; rightMargin: 15 }
        width: 10
        height: 10
        radius: height / 2.0
        color: currentTheme.highlight
        visible: root.selected
    }

    MouseArea {
        anchors.fill: parent
        onClicked: root.clicked()
    }
}
