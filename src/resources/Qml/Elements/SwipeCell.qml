// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// A cell that can be swiped aside to the left where `removeEnabled` allows it: a button to delete it comes in. A swipe
// is no click, however it ends. Children go into the part that moves, below the touch
// area unless their `z` is above 1.
Item {
    id: root

    property bool removeEnabled: false
    property bool contentSlides: true
    property bool aside: false
    property bool sliding: false
    default property alias content: container.data

    signal clicked()
    signal removeItem()

    // Slides here alone: a new width of the cell moves everything at once.
    function move(toAside) {
        sliding = true
        aside = toAside
        sliding = false
    }

    onRemoveEnabledChanged: {
        if (removeEnabled)
            deleteButton.visible = true
    }

    Item {
        id: container

        x: root.aside ? -deleteButton.width : 0
        width: root.width
        height: root.height

        Behavior on x {
            enabled: root.sliding && root.contentSlides
            NumberAnimation { duration: 150; easing.type: Easing.OutCurve }
        }

        MouseArea {
            property real lastX: 0
            property bool swiping: false

            onPressed: {
                lastX = mouse.x
                swiping = false
            }
            onMouseXChanged: {
                if (!root.removeEnabled || swiping || Math.abs(lastX - mouseX) <= 50)
                    return
                swiping = true
                root.move(lastX > mouseX)
            }
            onReleased: {
                if (!swiping)
                    root.clicked()
            }

            anchors.fill: parent
            z: 1
        }
    }

    Rectangle {
        id: deleteButton

        x: root.aside ? root.width - width : root.width + 50
        width: label.width + 30
        height: root.height
        color: "red"
        visible: false

        Behavior on x {
            enabled: root.sliding
            NumberAnimation { duration: 150; easing.type: Easing.OutCurve }
        }

        PlainLabel {
            id: label

            anchors.centerIn: parent
            text: "Delete"
            color: "white"
            font.pixelSize: 17
        }

        MouseArea {
            anchors.fill: parent
            onClicked: root.removeItem()
        }
    }
}
