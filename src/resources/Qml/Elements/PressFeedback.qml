// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtGraphicalEffects 1.0

// The touch of a button: a veil that shows while it is pressed, and with `applyMask` once more in the shape of
// `maskItem`.
MouseArea {
    id: root

    property bool applyMask: false
    property Item maskItem
    property real veilRadius: 0

    anchors.fill: parent

    Rectangle {
        id: veil

        anchors.fill: parent
        radius: root.veilRadius
        color: "#AAAAAA"
        opacity: root.applyMask ? 0.6 : 0.4
        visible: root.pressed
    }

    OpacityMask {
        anchors.fill: parent
        source: veil
        maskSource: root.maskItem
        visible: root.pressed && root.applyMask
    }
}
