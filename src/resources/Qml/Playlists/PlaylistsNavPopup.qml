// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0
import "../Elements"

PlaylistNavController {
    id: root

    property var firstShown: null

    // The change is told as often as the pop-up has been opened, and each list has playlists of its own: one that begins
    // with the playlist on show is on show. Whoever opens the pop-up sets that back to null, and has all loaded anew.
    function showPlaylists() {
        var playlists = currPlayer ? currPlayer.playlists : []
        var first = playlists.length > 0 ? playlists[0] : null
        if (!rootView || first !== null && first === firstShown)
            return
        firstShown = first
        rootView.listViewModel = playlists
    }

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
    onCurrPlayerChanged: showPlaylists()
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
