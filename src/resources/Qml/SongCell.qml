// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"

SwipeCell {
    id: root

    property bool selected: false
    property string imgSource: ""
    property alias textLabel: row.title
    property alias detailTextLabel: row.detail
    property alias menuBtnVisible: menuButton.visible

    signal moreMenuRequested()

    function updateImage(uri) {
        imgSource = uri
    }

    height: 75

    PictureRow {
        id: row

        anchors.fill: parent
        selected: root.selected
        picture.imgSource: root.imgSource
        detailRightMargin: menuButton.visible ? 50 : 10
    }

    MenuButton {
        id: menuButton

        z: 2
        visible: false
        onClicked: root.moreMenuRequested()
    }
}
