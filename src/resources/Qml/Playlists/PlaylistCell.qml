// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "../Elements"

Item {
    id: root

    property bool selected: false
    property string imgSource: ""
    property alias textLabel: row.title
    property alias detailTextLabel: row.detail

    signal moreMenuRequested()
    signal clicked()

    function updateImage(uri) {
        imgSource = uri
    }

    height: 75

    PictureRow {
        id: row

        anchors.fill: parent
        selected: root.selected
        picture.y: 6
        picture.defaultStem: "playlistcoverart"
        picture.imgSource: root.imgSource
        detailRightMargin: 50
    }

    // Clear of the dots below it.
    Chevron {
        anchors { top: parent.top; topMargin: 18; right: parent.right; rightMargin: 13 }
    }

    MouseArea {
        anchors.fill: parent
        onClicked: root.clicked()
    }

    MenuButton {
        margin: 5
        onClicked: root.moreMenuRequested()
    }
}
