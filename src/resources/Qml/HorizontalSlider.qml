// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"

SliderBase {
    id: root

    property alias trackHeight: track.height
    property alias knobHeight: knob.height
    property alias value: grip.value
    property real rounding: 0
    property real sendThreshold: 1

    function updatePosition() {
        var atCentre = minimumValue + (grip.x + grip.width / 2) / width * (maximumValue - minimumValue)
        grip.value = stepped(atCentre)
        sendOnceASecond()
    }

    function endDrag() {
        sliding = false
        updatePosition()
        newValueToSend()
    }

    width: 100
    height: 30

    Rectangle {
        id: track

        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        height: 4
        radius: height / 2
        color: currentTheme.menu

        Rectangle {
            width: Math.max(0, grip.x + grip.width / 2)
            height: parent.height
            radius: height / 2
            color: currentTheme.highlight
        }
    }

    MouseArea {
        anchors.fill: parent
        onClicked: {
            // Ends the grip's binding: from here on the device moves the value, and the hand moves the grip.
            grip.x = mouse.x - grip.width / 2
            root.updatePosition()
            root.newValueToSend()
        }
    }

    Rectangle {
        id: grip

        property real value: 0.5

        onValueChanged: {
            var within = root.limited(value)
            if (within !== value)
                value = within
        }

        x: (value - root.minimumValue) / (root.maximumValue - root.minimumValue) * root.width - width / 2
        width: 60
        height: 30
        color: "transparent"

        Rectangle {
            id: knob

            anchors.centerIn: parent
            width: height
            height: 16
            radius: height / 2
            color: currentTheme.highlight
            border { width: 2; color: currentTheme.icons }
        }

        MouseArea {
            anchors.fill: parent
            preventStealing: true
            drag { target: grip; axis: Drag.XAxis; minimumX: -grip.width / 2; maximumX: root.width - grip.width / 2 }
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
