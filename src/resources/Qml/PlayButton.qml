// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"

Item {
    id: root

    property bool applyMask: false
    property alias imgSource: image.source

    signal clicked()

    Rectangle {
        id: circle

        anchors.fill: parent
        radius: width / 2
        color: currentTheme.highlight
    }

    Image {
        id: image

        anchors.centerIn: parent
    }

    PressFeedback {
        applyMask: root.applyMask
        maskItem: circle
        veilRadius: width / 2
        onClicked: root.clicked()
    }
}
