// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5

// One remembered device: a click shows it, the buttons change and forget it.
Row {
    id: root

    property alias text: name.text
    property alias chosen: name.chosen

    signal selected()
    signal changeRequested()
    signal forgetRequested()

    spacing: 8

    HostButton {
        id: name

        width: parent.width - change.width - forget.width - 2 * parent.spacing
        onClicked: root.selected()
    }

    HostButton {
        id: change

        text: qsTr("Change")
        onClicked: root.changeRequested()
    }

    HostButton {
        id: forget

        text: qsTr("Forget")
        onClicked: root.forgetRequested()
    }
}
