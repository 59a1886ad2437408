// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.logic 1.0
import "pictures.js" as Pictures

// A row of the library: a plain cell for what contains others, a cell with cover and details for tracks, albums and
// artists. `navView` is the list's BrowseListView.
Item {
    id: root

    property PlayerItem playerItem: null
    property var navView: null
    property bool menuVisible: true
    readonly property string type: playerItem ? playerItem.type : ""
    readonly property bool isContainer: type === "directory" || type === "playlist"
    readonly property bool hasDetails: type === "track" || type === "album" || type === "artist"
    readonly property bool hasMenu: type === "track" || type === "album"

    function fillCell(cell) {
        cell.textLabel = playerItem.name
        cell.clicked.connect(cellClicked)
        if (isContainer)
            return
        refreshCellInfo()
        if (hasMenu) {
            cell.menuBtnVisible = menuVisible
            cell.moreMenuRequested.connect(cellMenuClicked)
        }
    }

    function detailText() {
        return type === "track" ? playerItem.album + "\n" + playerItem.artistsString : playerItem.artistsString
    }

    // Called again by the list when rows have new details: nothing here is bound to them.
    function refreshCellInfo() {
        if (!hasDetails)
            return
        if (hasMenu)
            cellLoader.item.detailTextLabel = detailText()
        var imgPath = playerItem.smallImgPath
        if (imgPath !== "")
            navView.requestImage(imgPath, cellLoader.item)
        else
            cellLoader.item.imgSource = Pictures.accented("defaultcoverart", currentTheme)
    }

    function cellClicked() {
        if (playerItem.uri === "")
            return
        if (type === "track")
            navView.playNow([playerItem.uri])
        else
            navView.requirePushView(playerItem.uri, playerItem.name)
    }

    function cellMenuClicked() {
        navView.openMenuWithItem(playerItem)
    }

    onPlayerItemChanged: {
        if (playerItem)
            cellLoader.source = isContainer ? "qrc:/Qml/GenericCell.qml" : "qrc:/Qml/SongCell.qml"
    }
    Component.onDestruction: {
        if (hasDetails && navView)
            navView.discardImage(playerItem.smallImgPath, cellLoader.item)
    }

    height: isContainer ? 44 : 75

    Loader {
        id: cellLoader

        anchors.fill: parent
        onStatusChanged: {
            if (status === Loader.Ready)
                root.fillCell(item)
        }
    }
}
