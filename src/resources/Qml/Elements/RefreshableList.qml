// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// A list whose rows have a function refreshCellInfo(), and that tells what is on show when a movement has come to rest:
// the positions of the first and the last row, -1 where none is.
ReloadedList {
    id: root

    signal cameToRest(int first, int last)

    // Headings and the like have nothing to refresh.
    function refreshItems() {
        var childNum = contentItem.children.length
        console.debug("refreshItems : " + childNum)
        for (var i = 0; i < childNum; ++i) {
            try {
                contentItem.children[i].refreshCellInfo()
            } catch (error) {
                console.debug("Error QML : " + error)
            }
        }
    }

    onMovementEnded: cameToRest(indexAt(1, contentY), indexAt(1, contentY + height))
}
