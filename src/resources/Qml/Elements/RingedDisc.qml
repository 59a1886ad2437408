// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtGraphicalEffects 1.0

// The large round picture with its three outer rings. All diameters hang on the height.
Item {
    id: root

    property bool loadCentered: false
    property real imageRadius: height - 140
    property real sliderRadius: height - 137
    property real c1Radius: height - 120
    property real c2Radius: height - 105
    property real c3Radius: height - 90
    property alias image: image
    property alias disc: disc

    Rectangle {
        id: disc

        anchors {
            top: parent.top
            topMargin: 50
            horizontalCenter: parent.horizontalCenter
            alignWhenCentered: false
        }
        width: root.imageRadius
        height: root.imageRadius
        radius: width / 2
        color: currentTheme.highlight
        clip: true

        layer.enabled: true
        layer.effect: OpacityMask {
            maskSource: Rectangle {
                width: disc.width
                height: disc.height
                radius: width / 2
                visible: false
            }
        }

        RoundImage {
            id: image

            anchors { centerIn: parent; alignWhenCentered: false }
        }
    }

    Ring {
        y: 40
        diameter: root.c1Radius
        border.width: 1.5
    }

    Ring {
        y: 32.5
        diameter: root.c2Radius
        border.width: 1
    }

    Ring {
        y: 25
        diameter: root.c3Radius
        border.width: 0.5
    }
}
