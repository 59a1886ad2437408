// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0
import "../Elements"

NavigationView {
    id: root

    property alias listViewModel: list.rows
    property var currHalvora: null

    signal openMenuWithItem(var p)
    signal requireBrowseForUri(string uri, string title)
    signal requestImage(string uri, Item item)
    signal discardImage(string uri, Item item)
    signal requireLookup(int startIndex, int endIndex)

    // The name of the preset slot that a playlist is tied to, "" for none.
    function getEntryForUri(playlistUri) {
        var entries = currHalvora ? currHalvora.playlistEntries : []
        for (var i = 0; i < entries.length; ++i) {
            if (entries[i].playlistRef === playlistUri)
                return entries[i].name
        }
        return ""
    }

    function refreshItems() {
        list.refreshItems()
    }

    title: "Playlists"

    RefreshableList {
        id: list

        onCameToRest: root.requireLookup(first, last)

        anchors { fill: parent; bottomMargin: 45 }
        clip: true
        row: PlaylistCell {
            function refreshCellInfo() {
                var imgPath = model.smallImgPath
                if (imgPath !== "")
                    root.requestImage(imgPath, this)
                else
                    imgSource = imgPath
            }

            onClicked: root.requireBrowseForUri(model.uri, model.name)
            onMoreMenuRequested: root.openMenuWithItem(modelData)
            Component.onCompleted: refreshCellInfo()
            Component.onDestruction: root.discardImage(model.smallImgPath, this)

            width: list.width
            textLabel: model.name
            detailTextLabel: root.getEntryForUri(model.uri)
        }
    }
}
