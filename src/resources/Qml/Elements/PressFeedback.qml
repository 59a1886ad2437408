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

    // Made where it is wanted alone: a row of a list has a button, and this is most of it.
    Loader {
        anchors.fill: parent
        active: root.applyMask
        sourceComponent: OpacityMask {
            source: veil
            maskSource: root.maskItem
            visible: root.pressed
        }
    }
}
