// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "../Elements"
import "../Elements/pictures.js" as Pictures

// Its parent carries out what is chosen.
ActionSheet {
    id: root

    // The names of such playlists are not the device's to change.
    readonly property var foreignKeys: ["It_PlayNow", "It_AddToQueue", "It_Associate"]
    readonly property var ownKeys: ["It_PlayNow", "It_AddToQueue", "It_Rename", "It_Associate", "It_Delete"]

    onSelectedItemChanged: {
        if (!selectedItem)
            return
        console.debug("selectedItem : " + selectedItem.uri)
        cover.coverSource = Pictures.accented("playlistcoverart", currentTheme)
        firstRow.text = selectedItem.name
        offer(selectedItem.uri.substring(0, 8) === "spotify:" ? foreignKeys : ownKeys)
    }
    onActionChosen: {
        parent.menuActionForItem(key, selectedItem)
        close()
    }
}
