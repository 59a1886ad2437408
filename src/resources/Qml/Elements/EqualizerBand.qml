// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import ".."

// One band of the equaliser, as high as the equaliser itself: the caption below, and over its middle the slider.
Item {
    id: root

    property real deviceValue: 0
    readonly property alias value: slider.value
    property alias caption: label.text
    property alias captionWrap: label.wrapMode

    signal newValueToSend()

    // What the device says must not pull the slider away from under a finger.
    onDeviceValueChanged: {
        if (!slider.sliding)
            slider.value = deviceValue
    }

    anchors { top: parent.top; bottom: parent.bottom }

    VerticalSlider {
        id: slider

        anchors { top: parent.top; topMargin: 60; bottom: parent.bottom; bottomMargin: 70; horizontalCenter: label.horizontalCenter }
        width: 30
        minimumValue: -20
        maximumValue: 20
        trackWidth: 4
        onNewValueToSend: root.newValueToSend()
    }

    PlainLabel {
        id: label

        anchors { bottom: parent.bottom; bottomMargin: 30; left: parent.left; right: parent.right }
        height: 30
        font.pixelSize: 12
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WordWrap
    }
}
