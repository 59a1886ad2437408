// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import ".."

// What the player screen is about: an output and its source. All of it is one button.
Rectangle {
    id: root

    property alias outputName: output.text
    property alias sourceName: source.text

    signal clicked()

    width: parent.width
    height: 75
    color: currentTheme.menu

    PlainLabel {
        x: 15
        y: 18
        width: parent.width / 2 - 15
        height: 14
        text: "Output"
        color: currentTheme.icons
        font.pixelSize: 12
    }

    PlainLabel {
        x: parent.width / 2 + 15
        y: 18
        width: parent.width / 2 - 15
        height: 14
        text: "Source"
        color: currentTheme.icons
        font.pixelSize: 12
    }

    TopBarName {
        id: output

        x: 15
    }

    TopBarName {
        id: source

        x: parent.width / 2 + 15
    }

    FeedbackButton {
        anchors.fill: parent
        onClicked: root.clicked()
    }
}
