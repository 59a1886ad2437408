// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0
import "../Elements"

// The preset slots of the device. With `enableSelection` a tap ties the playlist `plRef` to a slot. The player is to be
// set before the device, as the rows read it at once.
NavigationView {
    id: root

    property string plRef: ""
    property var currHalvora: null
    property var currPlayer: null
    property bool enableSelection: false

    onCurrHalvoraChanged: list.rows = currHalvora ? currHalvora.playlistEntries : []

    title: "Playlist Entries"

    Rectangle {
        anchors.fill: parent
        color: currentTheme.background
    }

    MouseArea {
        anchors.fill: parent
        onClicked: {}
    }

    ReloadedList {
        id: list

        anchors.fill: parent
        clip: true
        row: PlaylistEntryCell {
            onClicked: {
                if (!root.enableSelection)
                    return
                selected = true
                root.currHalvora.actionAssociatePlaylist(model.entryId, root.plRef)
                root.popLastView()
            }

            width: list.width
            selected: root.enableSelection && model.playlistRef !== "" && model.playlistRef === root.plRef
            textLabel: model.name
            detailTextLabel: root.currPlayer ? root.currPlayer.getPlaylistName(model.playlistRef) : ""
        }
    }
}
