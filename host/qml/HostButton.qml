// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import halvora.host 1.0

// A button for the mouse and the keyboard; it has a ring while keys go to it.
Rectangle {
    id: root

    property alias text: label.text
    property bool accented: false // the one that a page is there for
    property bool chosen: false   // the one that is in force among several

    signal clicked()

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onSpacePressed: clicked()

    implicitWidth: Math.ceil(label.implicitWidth) + 30
    implicitHeight: 40
    radius: 5
    color: accented || chosen ? HostTheme.highlight : HostTheme.header
    opacity: mouse.pressed ? 0.6 : 1
    border { width: activeFocus ? 2 : 0; color: HostTheme.icons }
    activeFocusOnTab: true

    HostLabel {
        id: label

        anchors { fill: parent; leftMargin: 8; rightMargin: 8 }
        color: root.accented || root.chosen ? HostTheme.background : HostTheme.icons
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
    }

    MouseArea {
        id: mouse

        anchors.fill: parent
        onClicked: {
            root.forceActiveFocus();
            root.clicked();
        }
    }
}
