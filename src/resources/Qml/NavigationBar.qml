// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0
import "Elements"

NavigationBar {
    id: root

    property alias backText: backButton.text
    property alias backVisible: backButton.visible
    property alias secRightText: secondButton.text
    property alias secRightVisible: secondButton.visible
    property alias rightText: rightButton.text
    property alias rightVisible: rightButton.visible

    signal right()
    signal secondRight()
    signal back()

    anchors.top: parent ? parent.top : undefined
    anchors.left: parent ? parent.left : undefined
    width: parent ? parent.width : 0
    height: 44

    // The bar's own signal right() hides the anchor line of that name from its children.
    Item {
        id: ground

        anchors.fill: parent

        Rectangle {
            anchors.fill: parent
            color: currentTheme.menu
        }

        NavigationButton {
            id: backButton

            width: (parent.width - 10) / 3.0
            height: parent.height
            type: 0
            textSize: 17
            textColor: currentTheme.text
            textAlign: Text.AlignLeft
            visible: false
            onClicked: root.back()
        }

        PlainLabel {
            anchors.centerIn: parent
            width: (parent.width - 10) / 3.0
            text: root.title
            font.pixelSize: 17
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
        }

        NavigationButton {
            id: secondButton

            anchors { right: rightButton.left; rightMargin: 5 }
            width: (parent.width - 10) / 6.0
            height: parent.height
            type: 1
            text: "Save"
            textSize: 17
            textColor: currentTheme.text
            visible: false
            onClicked: root.secondRight()
        }

        NavigationButton {
            id: rightButton

            anchors.right: ground.right
            width: (parent.width - 10) / 6.0
            height: parent.height
            type: 1
            text: "Close"
            textSize: 17
            textColor: currentTheme.text
            onClicked: root.right()
        }
    }
}
