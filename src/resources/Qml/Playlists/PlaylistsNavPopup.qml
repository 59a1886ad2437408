// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0
import "../Elements"

PlaylistNavController {
    id: root

    function showMoreMenu(playlist) {
        menuPopup.selectedItem = playlist
        menuPopup.y = 0
    }

    function park() {
        parking.park()
    }

    function parkUnlessOpen() {
        parking.parkUnlessOpen()
    }

    // The one place that follows the size: the list leaves room for the bar at its end.
    function sizeRoot() {
        if (!rootView)
            return
        rootView.width = width
        rootView.height = height
    }

    onWidthChanged: sizeRoot()
    onHeightChanged: {
        sizeRoot()
        menuPopup.parkUnlessOpen()
    }
    onCurrPlayerChanged: {
        if (rootView)
            rootView.listViewModel = currPlayer ? currPlayer.playlists : []
    }
    Component.onCompleted: {
        initNavigationBar()
        initRootView()
        sizeRoot()
        menuPopup.z = rootView.z + 1
    }

    Behavior on y {
        enabled: parking.settled
        NumberAnimation { duration: 300 }
    }

    Parking {
        id: parking

        panel: root
    }

    Rectangle {
        anchors.fill: parent
        color: currentTheme.background
    }

    MouseArea {
        anchors.fill: parent
        onClicked: {}
    }

    PlaylistMoreMenu {
        id: menuPopup

        onClose: retire()
    }
}
