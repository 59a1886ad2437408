// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.logic 1.0
import "Elements"
import "Elements/pictures.js" as Pictures

// The queue of one player. Its parent fetches the pictures, by requestImage(uri, item).
SlidingPanel {
    id: root

    property HalvoraPlayer currentPlayer: null
    // The player that is listened to. Not bound, so that it can be let go of first.
    property HalvoraPlayer followed: null
    // A list that is read from a player is fetched whole again for each element that is looked at; one that is read
    // from here is a copy.
    property variant tlids: []

    signal close()
    signal requireOpenSaveDialog()

    function prepareDisconnection() {
        followed = null
    }

    // The list then stands at the row that plays.
    function loadQueue() {
        list.rows = currentPlayer ? currentPlayer.queue : []
        updateSelection()
    }

    function updateSelection() {
        tlids = currentPlayer ? currentPlayer.queueTlid : []
        list.currentIndex = currentPlayer ? tlids.indexOf(currentPlayer.currentTlid) : -1
    }

    onCurrentPlayerChanged: {
        followed = currentPlayer
        loadQueue()
    }

    Connections {
        target: root.followed
        function onQueueChanged() {
            root.loadQueue()
        }
        function onCurrentTlidChanged() {
            root.updateSelection()
        }
    }

    CloseButton {
        onClicked: root.close()
    }

    FeedbackButton {
        anchors { right: parent.right; rightMargin: 70 }
        width: 50
        height: 50
        imgSource: "qrc:/HalvoraImgs/Images/delete.png"
        onClicked: {
            if (root.currentPlayer)
                root.currentPlayer.actionClearQueue()
        }
    }

    FeedbackButton {
        anchors { right: parent.right; rightMargin: 10 }
        width: 50
        height: 50
        imgSource: "qrc:/HalvoraImgs/Images/save.png"
        onClicked: {
            if (root.currentPlayer)
                root.requireOpenSaveDialog()
        }
    }

    ReloadedList {
        id: list

        onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Beginning)

        anchors { fill: parent; topMargin: 40; bottomMargin: 10 }
        clip: true
        cacheBuffer: 1500
        currentIndex: -1
        // The row that plays goes to the top at once; a search for it across a long queue would take its time.
        highlightFollowsCurrentItem: false

        row: SongCell {
            property Song playerItem: modelData

            onPlayerItemChanged: {
                if (!playerItem)
                    return
                textLabel = playerItem.name
                detailTextLabel = playerItem.album + "\n" + playerItem.artistsString
                imgSource = Pictures.accented("defaultcoverart", currentTheme)
                if (playerItem.smallImgPath !== "")
                    root.parent.requestImage(playerItem.smallImgPath, this)
            }
            onClicked: root.currentPlayer.actionPlayTrack(root.tlids[index])
            onRemoveItem: root.currentPlayer.actionRemoveTrackFromQueue(index)

            width: list.width
            removeEnabled: true
            selected: ListView.isCurrentItem
        }
    }
}
