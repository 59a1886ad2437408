// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import halvora.host 1.0

// A line between the client and its tabs for what the client itself does not say. No text: no line.
Rectangle {
    id: root

    property string problem: ""  // stays until it is dismissed
    property string passing: ""  // comes and goes by itself

    signal dismissed()

    readonly property string words: problem !== "" ? problem : passing

    implicitHeight: words === "" ? 0 : Math.max(dismiss.height, Math.ceil(label.implicitHeight)) + 16
    visible: words !== ""
    color: HostTheme.menu

    HostLabel {
        id: label

        objectName: "notice"
        anchors {
            left: parent.left; leftMargin: 12
            right: dismiss.visible ? dismiss.left : parent.right; rightMargin: 12
            verticalCenter: parent.verticalCenter
        }
        color: HostTheme.warning
        font.pixelSize: 14
        text: root.words
    }

    HostButton {
        id: dismiss

        objectName: "dismiss"
        anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
        visible: root.problem !== ""
        text: qsTr("OK")
        onClicked: root.dismissed()
    }
}
