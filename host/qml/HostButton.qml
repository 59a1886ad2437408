// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import halvora.host 1.0

// A button of the host's pages; it has a ring while keys go to it.
Pressable {
    id: root

    property alias text: label.text
    property bool accented: false // the one that a page is there for
    property bool chosen: false   // the one that is in force among several

    implicitWidth: Math.ceil(label.implicitWidth) + 30
    implicitHeight: 40

    Rectangle {
        anchors.fill: parent
        radius: 5
        color: root.accented || root.chosen ? HostTheme.highlight : HostTheme.header
        opacity: root.pressed ? 0.6 : 1
        border { width: root.activeFocus ? 2 : 0; color: HostTheme.icons }
    }

    HostLabel {
        id: label

        anchors { fill: parent; leftMargin: 8; rightMargin: 8 }
        color: root.accented || root.chosen ? HostTheme.background : HostTheme.icons
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
    }
}
