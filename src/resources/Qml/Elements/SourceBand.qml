// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import ".."

// The head of the outputs that play one source: its name and volume.
Rectangle {
    id: root

    property var currentSource: null
    property int volume: currentSource ? currentSource.volume : 0

    signal volumeChosen(int value)

    onVolumeChanged: {
        if (!slider.sliding)
            slider.value = volume
    }
    Component.onCompleted: slider.value = volume

    height: 50
    color: currentTheme.header

    PlainLabel {
        anchors.verticalCenter: parent.verticalCenter
        x: 15
        width: 120
        height: 40
        text: root.currentSource ? root.currentSource.name : ""
        color: currentTheme.icons
        font.pixelSize: 16
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    HorizontalSlider {
        id: slider

        anchors.verticalCenter: parent.verticalCenter
        x: 125
        width: parent.width - 140
        height: 30
        trackHeight: 4
        knobHeight: 16
        visible: root.currentSource !== null
        onNewValueToSend: root.volumeChosen(value)
    }
}
