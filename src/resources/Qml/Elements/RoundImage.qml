// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtGraphicalEffects 1.0

// A picture cut to a round shape: `rounded` switches the cut, `adapt` lets it follow the picture's own sides instead
// of a square of the smaller one.
Image {
    id: root

    property bool rounded: true
    property bool adapt: true

    onStatusChanged: {
        if (status === Image.Error)
            console.debug("Image error!!!")
    }

    fillMode: Image.PreserveAspectFit

    layer.enabled: rounded
    layer.effect: OpacityMask {
        maskSource: Item {
            width: root.width
            height: root.height
            visible: false

            Rectangle {
                anchors.centerIn: parent
                width: root.adapt ? root.width : Math.min(root.width, root.height)
                height: root.adapt ? root.height : width
                radius: Math.min(width, height)
            }
        }
    }
}
