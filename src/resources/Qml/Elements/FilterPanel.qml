// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import ".."

// The schemes that a search can be limited to. It waits at the right of its parent.
Rectangle {
    id: root

    property alias model: list.rows
    property alias selectedUri: list.selectedUri
    property var translator: null
    property bool settled: false
    property bool open: false

    signal selected(string title)

    function slideIn() {
        open = true
        x = 0
    }

    function slideOut() {
        open = false
        x = width + 5
    }

    // A parent that gets its size must not send the panel sliding across the screen.
    function park() {
        if (open)
            return
        settled = false
        x = parent.width
        settled = true
    }

    onWidthChanged: park()

    width: parent.width
    height: parent.height
    color: currentTheme.menu

    Behavior on x {
        enabled: root.settled
        NumberAnimation { duration: 200 }
    }

    MouseArea {
        anchors.fill: parent
        onClicked: {}
    }

    CloseButton {
        rotation: -90
        onClicked: root.slideOut()
    }

    FeedbackButton {
        anchors { top: parent.top; topMargin: 5; right: parent.right; rightMargin: 15 }
        width: 80
        height: 30
        text: "Select"
        textSize: 20
        onClicked: root.slideOut()
    }

    ReloadedList {
        id: list

        property string selectedUri: ""

        anchors { fill: parent; topMargin: 50; leftMargin: 15; rightMargin: 15; bottomMargin: 15 }
        clip: true
        currentIndex: 0
        row: PlainLabel {
            id: title

            width: list.width
            height: 40
            text: root.translator.translate(modelData)
            color: ListView.isCurrentItem ? "black" : currentTheme.text
            font.pixelSize: 21
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight

            MouseArea {
                anchors.fill: parent
                onClicked: {
                    list.currentIndex = index
                    list.selectedUri = modelData
                    root.selected(title.text)
                }
            }
        }
    }
}
