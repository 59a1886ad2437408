// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import halvora.host 1.0

// One tab: a picture of the client at its own size, on whole pixels. It has a ring while keys go to it, which a click
// does not bring.
Pressable {
    id: root

    property string picture
    property string accent // the theme's picture suffix
    property bool selected: false

    clickFocuses: false

    Rectangle {
        anchors { fill: parent; margins: 3 }
        visible: root.activeFocus
        color: "transparent"
        radius: 5
        border { width: 2; color: HostTheme.icons }
    }

    Image {
        x: Math.round((root.width - width) / 2)
        y: Math.round((root.height - height) / 2)
        opacity: root.enabled ? 1 : 0.35
        source: "qrc:/HalvoraImgs/Images/" + root.picture + (root.selected ? "_sel" + root.accent : "") + ".png"
    }
}
