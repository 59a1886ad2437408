// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"

// A button of the title bar: `type` 0 is back, with a chevron, 1 is any other.
Item {
    id: root

    property int type: 0
    property bool applyMask: false
    property alias textColor: label.color
    property alias textSize: label.font.pixelSize
    property alias text: label.text
    property alias textAlign: label.horizontalAlignment

    signal clicked()

    Chevron {
        points: [[20, height / 2 - 10], [10, height / 2], [20, height / 2 + 10]]
        width: 25
        height: parent.height
        visible: root.type === 0
    }

    PlainLabel {
        id: label

        x: root.type === 0 ? 25 : 0
        width: parent.width - (root.type === 0 ? 25 : 10)
        height: parent.height
        horizontalAlignment: root.type === 0 ? Text.AlignLeft : Text.AlignRight
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    PressFeedback {
        applyMask: root.applyMask
        maskItem: label
        onClicked: root.clicked()
    }
}
