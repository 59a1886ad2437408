// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"
import "Elements/dashes.js" as Dashes

// The tone of one output in four bands, from -20 to 20 dB. There is nothing to confirm: every change is told to the
// outside at once, with the values of all bands.
SlidingPanel {
    id: root

    property real bassValue: 0
    property real middleValue: 0
    property real trebleValue: 0
    property real loudnessValue: 0

    signal saveEqualizer(int bass, int middle, int treble, int loudness)

    // The bands share what is left of the first part of the width behind the scale's texts.
    readonly property real bandsWidth: 0.7 * width - 65

    function save() {
        saveEqualizer(bass.value, middle.value, treble.value, loudness.value)
    }

    CloseButton {
        onClicked: root.y = root.parent.height
    }

    Canvas {
        id: scale

        anchors { fill: parent; topMargin: 60; bottomMargin: 70; leftMargin: 15; rightMargin: 15 }
        onPaint: {
            var context = getContext("2d")
            context.clearRect(0, 0, width, height)
            var lines = [0, height / 2, height - 1]
            for (var i = 0; i < lines.length; ++i) {
                Dashes.horizontal(context, currentTheme.text, 0, 0.7 * root.width - 15, lines[i])
                Dashes.horizontal(context, currentTheme.text, Math.round(0.77 * root.width), width, lines[i])
            }
        }
    }

    PlainLabel {
        x: 15
        y: 45
        height: 15
        text: "+20dB"
        font.pixelSize: 12
    }

    PlainLabel {
        x: 15
        y: 45 + (parent.height - 130) / 2
        height: 15
        text: "0dB"
        font.pixelSize: 12
    }

    PlainLabel {
        anchors { bottom: parent.bottom; bottomMargin: 70 }
        x: 15
        height: 15
        text: "-20dB"
        font.pixelSize: 12
    }

    // Half as wide as the others, which brings it nearer to the scale.
    EqualizerBand {
        id: bass

        x: 65
        width: root.bandsWidth / 6
        caption: "BASS 100Hz"
        deviceValue: root.bassValue
        onNewValueToSend: root.save()
    }

    EqualizerBand {
        id: middle

        x: 65 + root.bandsWidth / 3
        width: root.bandsWidth / 3
        caption: "MIDDLE 1kHz"
        deviceValue: root.middleValue
        onNewValueToSend: root.save()
    }

    EqualizerBand {
        id: treble

        x: 65 + 2 * root.bandsWidth / 3
        width: root.bandsWidth / 3
        caption: "TREBLE 10kHz"
        deviceValue: root.trebleValue
        onNewValueToSend: root.save()
    }

    EqualizerBand {
        id: loudness

        x: 0.77 * root.width
        width: 0.27 * root.width - 15
        caption: "LOUDNESS"
        captionWrap: Text.NoWrap
        deviceValue: root.loudnessValue
        onNewValueToSend: root.save()
    }
}
