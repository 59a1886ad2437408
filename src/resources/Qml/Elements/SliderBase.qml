// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// What both sliders are without their looks: a range, and the rule on how often a value leaves for the device.
Item {
    id: root

    property real minimumValue: 0
    property real maximumValue: 100
    property real stepSize: 1
    property bool sliding: false
    property real lastTimestamp: 0

    signal newValueToSend()

    function stepped(value) {
        return Math.round(value / stepSize) * stepSize
    }

    function limited(value) {
        return Math.max(minimumValue, Math.min(maximumValue, value))
    }

    function sendOnceASecond() {
        var elapsed = Math.round(Date.now() / 1000)
        if (lastTimestamp - elapsed <= -1) {
            newValueToSend()
            lastTimestamp = elapsed
        }
    }

    Component.onCompleted: lastTimestamp = 0
}
