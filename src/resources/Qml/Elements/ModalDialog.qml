// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// A question in a box over its whole parent, which cannot be used meanwhile. Children stand below the message. It
// never goes by itself: whoever made it takes close() as the sign to remove it.
Item {
    id: root

    property string playlistUri: ""
    property alias headTitle: title.text
    property alias bodyMessage: body.text
    property alias okBtnText: okButton.text
    property alias cancBtnText: cancelButton.text
    default property alias extras: extra.data

    signal okClicked()
    signal cancelClicked()
    signal close(Item obj)

    readonly property Item lowest: extra.height > 0 ? extra : body

    // On a small screen the box takes most of the shorter side. The host may leave out the flag.
    function boxScale() {
        if (typeof smallScreen !== "undefined" && smallScreen)
            return width < height ? 0.8 * width / 300 : 0.7 * height / 200
        return Math.max(300, 300 / 1024 * width) / 300
    }

    onWidthChanged: box.scale = boxScale()

    anchors.fill: parent

    Rectangle {
        anchors.fill: parent
        color: "black"
        opacity: 0.6

        MouseArea {
            anchors.fill: parent
            onClicked: {}
        }
    }

    Rectangle {
        id: box

        anchors.centerIn: parent
        width: 300
        height: Math.max(200, root.lowest.y + root.lowest.height + 70)
        radius: 20
        color: "#F4F4F4"

        BoxedLabel {
            id: title

            x: 15
            y: 25
            width: parent.width - 30
            color: "black"
            font { pixelSize: 20; bold: true }
            renderType: Text.QtRendering
            horizontalAlignment: Text.AlignHCenter
        }

        BoxedLabel {
            id: body

            anchors { top: title.bottom; topMargin: 15; left: title.left; right: title.right }
            color: "black"
            font.pixelSize: 20
            renderType: Text.QtRendering
            horizontalAlignment: Text.AlignHCenter
        }

        Item {
            id: extra

            anchors { top: body.bottom; topMargin: 25; left: body.left; right: body.right }
            height: childrenRect.height
        }

        Item {
            anchors { bottom: parent.bottom; left: parent.left; right: parent.right }
            height: 50

            DialogButton {
                id: okButton

                text: "OK"
                font.bold: true
                onClicked: root.okClicked()
            }

            DialogButton {
                id: cancelButton

                x: width
                text: "Cancel"
                onClicked: root.cancelClicked()
            }

            Rectangle {
                width: parent.width
                height: 1
                color: "lightgray"
            }

            Rectangle {
                x: parent.width / 2
                width: 1
                height: parent.height
                color: "lightgray"
            }
        }
    }
}
