// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.logic 1.0
import "Elements"
import "Elements/pictures.js" as Pictures

// Its parent carries out what is chosen.
ActionSheet {
    id: root

    property HalvoraPlayer selectedPlayer
    property string selectedAction: ""

    readonly property var trackKeys: [
        "It_PlayNow", "It_PlayNow_All", "It_PlayAfter", "It_AddToQueue", "It_AddToQueue_All",
        "It_AddToPlaylist", "It_AddToPlaylist_All", "It_ShowAlbum"
    ]
    readonly property var albumKeys: ["It_PlayNow", "It_PlayAfter", "It_AddToQueue", "It_AddToPlaylist"]

    function showCover() {
        if (selectedItem.mediumImgPath === "")
            cover.coverSource = Pictures.accented("defaultcoverart", currentTheme)
        else
            parent.requestImage(selectedItem.mediumImgPath, cover)
    }

    // What a type does not tell stays as the item before it left it.
    function showDetails() {
        if (selectedItem.type === "track") {
            offer(trackKeys)
            secondRow.text = selectedItem.album
            thirdRow.text = selectedItem.artistsString
        } else if (selectedItem.type === "album") {
            offer(albumKeys)
            secondRow.text = selectedItem.artistsString
        }
    }

    menu.topMargin: 5
    menu.interactive: false
    onSelectedItemChanged: {
        if (!selectedItem)
            return
        firstRow.text = selectedItem.name
        showCover()
        showDetails()
    }
    onActionChosen: {
        if (key === "It_AddToPlaylist" || key === "It_AddToPlaylist_All") {
            selectedAction = key
            chooser.move(true)
        } else {
            parent.menuActionForItem(key, selectedItem)
            close()
        }
    }
    onClose: chooser.move(false)

    LineLabel {
        id: secondRow

        anchors { left: root.firstRow.left; right: root.firstRow.right; top: root.firstRow.bottom; topMargin: 5 }
        height: 18
        font.pixelSize: 14
    }

    LineLabel {
        id: thirdRow

        anchors { left: secondRow.left; right: secondRow.right; top: secondRow.bottom; topMargin: 2 }
        height: 18
        font.pixelSize: 14
    }

    PlaylistChooser {
        id: chooser

        y: root.menuTop
        width: root.width
        height: root.height - y - 15
        model: root.selectedPlayer ? root.selectedPlayer.playlists : []
        onChosen: {
            root.parent.menuActionForItemPL(root.selectedAction, root.selectedItem, uri)
            root.close()
        }
    }
}
