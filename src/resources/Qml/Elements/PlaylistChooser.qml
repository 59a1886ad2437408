// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import ".."

// A list of playlists that slides in from the right. It lies at its own width, or a little farther, when out.
Rectangle {
    id: root

    property alias model: list.rows
    property bool open: false
    property bool sliding: false
    property real farther: 0

    signal chosen(string uri)

    function move(toOpen) {
        sliding = true
        farther = 5
        open = toOpen
        sliding = false
    }

    x: open ? 0 : width + farther
    color: currentTheme.header

    // A new width moves it at once.
    Behavior on x {
        enabled: root.sliding
        NumberAnimation { duration: 200 }
    }

    MouseArea {
        anchors.fill: parent
        onClicked: {}
    }

    CloseButton {
        rotation: -90
        onClicked: root.move(false)
    }

    ReloadedList {
        id: list

        anchors { fill: parent; topMargin: 50; leftMargin: 15; rightMargin: 15; bottomMargin: 15 }
        clip: true
        currentIndex: -1

        row: LineLabel {
            width: list.width
            height: 35
            text: modelData.name
            font.pixelSize: 18
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter

            MouseArea {
                anchors.fill: parent
                onClicked: root.chosen(modelData.uri)
            }
        }
    }
}
