// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// One tab: a picture of the client at its own size, on whole pixels.
Item {
    id: root

    property string picture
    property string accent // the theme's picture suffix
    property bool selected: false

    signal clicked()

    Image {
        x: Math.round((root.width - width) / 2)
        y: Math.round((root.height - height) / 2)
        opacity: root.enabled ? 1 : 0.35
        source: "qrc:/HalvoraImgs/Images/" + root.picture + (root.selected ? "_sel" + root.accent : "") + ".png"
    }

    MouseArea {
        anchors.fill: parent
        onClicked: root.clicked()
    }
}
