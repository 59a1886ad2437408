// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"

SliderBase {
    id: root

    property real trackWidth: 4
    property alias value: grip.value
    property real rounding: 1

    function placeOf(value) {
        return (height - 5) * (1 - (value - minimumValue) / (maximumValue - minimumValue)) - grip.height / 2
    }

    function updatePosition() {
        var fromBottom = (height - (grip.y + grip.height / 2)) / height
        grip.value = stepped(minimumValue + fromBottom * (maximumValue - minimumValue))
        // Snaps to the step, and ends the grip's binding.
        grip.y = placeOf(grip.value)
        sendOnceASecond()
    }

    function endDrag() {
        sliding = false
        updatePosition()
        newValueToSend()
    }

    Rectangle {
        anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom }
        width: root.trackWidth
        height: Math.max(0, parent.height - (grip.y + grip.height / 2))
        color: currentTheme.highlight
    }

    Rectangle {
        id: grip

        property real value: 0

        y: root.placeOf(value)
        width: parent.width
        height: 40
        color: "transparent"

        MouseArea {
            anchors.fill: parent
            enabled: root.height > grip.height // else there is no way to drag along
            preventStealing: true
            drag { target: grip; axis: Drag.YAxis; minimumY: -20; maximumY: root.height - 25 }
            onPositionChanged: {
                if (drag.active) {
                    root.sliding = true
                    root.updatePosition()
                }
            }
            onReleased: root.endDrag()
            onCanceled: root.endDrag()
        }
    }
}
