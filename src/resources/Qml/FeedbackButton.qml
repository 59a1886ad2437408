// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"

Item {
    id: root

    property bool applyMask: false
    property alias imgSource: image.source
    property alias text: label.text
    property alias textColor: label.color
    property alias textSize: label.font.pixelSize
    property alias textAlign: label.horizontalAlignment

    signal clicked()

    Image {
        id: image

        anchors.centerIn: parent
    }

    PlainLabel {
        id: label

        anchors.fill: parent
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.WordWrap
    }

    PressFeedback {
        applyMask: root.applyMask
        maskItem: image
        onClicked: root.clicked()
    }
}
