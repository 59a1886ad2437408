// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// Half of a dialog's foot.
Item {
    id: root

    property alias text: label.text
    property alias font: label.font

    signal clicked()

    width: parent.width / 2
    height: parent.height

    LineLabel {
        id: label

        anchors { fill: parent; leftMargin: 5; rightMargin: 5 }
        color: "blue"
        font.pixelSize: 20
        renderType: Text.QtRendering
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    PressFeedback {
        veilRadius: 20
        onClicked: root.clicked()
    }
}
