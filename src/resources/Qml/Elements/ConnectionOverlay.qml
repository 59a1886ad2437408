// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// What the link has to say, over a screen that cannot be used meanwhile.
Rectangle {
    property alias connText: label.text

    anchors.fill: parent
    color: currentTheme.background
    opacity: 0.7
    visible: false

    PlainLabel {
        id: label

        anchors.centerIn: parent
        width: parent.width - 20
        height: 50
        color: currentTheme.icons
        font.pixelSize: 16
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.WordWrap
    }

    MouseArea {
        anchors.fill: parent
        onClicked: {}
    }
}
