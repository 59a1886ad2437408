// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5

// What can be pressed with the mouse and, while it has the keys, with Return, Enter and the space bar.
Item {
    id: root

    property bool clickFocuses: true // whether the keys follow the mouse
    readonly property alias pressed: mouse.pressed

    signal clicked()

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onSpacePressed: clicked()

    activeFocusOnTab: true

    MouseArea {
        id: mouse

        anchors.fill: parent
        onClicked: {
            if (root.clickFocuses)
                root.forceActiveFocus();
            root.clicked();
        }
    }
}
