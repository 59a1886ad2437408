// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"

SwipeCell {
    id: root

    property alias textLabel: label.text
    property alias textColor: label.color
    property alias arrowVisible: chevron.visible

    LineLabel {
        id: label

        anchors.verticalCenter: parent.verticalCenter
        x: 15
        width: root.width - 25
        font.pixelSize: 17
    }

    Chevron {
        id: chevron

        anchors { verticalCenter: parent.verticalCenter; right: parent.right; rightMargin: 13 }
    }
}
