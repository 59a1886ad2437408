// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// The rows of a BrowseListView on their own ground, with headings when there is more than one type of them.
Rectangle {
    id: root

    property var navView: null
    property bool menuVisible: true
    property Component heading

    // The headings have to be settled before the rows come.
    function load() {
        list.section.property = navView.rowTypes && navView.rowTypes.length > 1 ? "type" : ""
        list.rows = navView.rowTypes ? navView.allSortedItems : []
    }

    function refreshItems() {
        list.refreshItems()
    }

    color: currentTheme.background
    clip: true

    // Touches end here and not on the screen below.
    MouseArea {
        anchors.fill: parent
        onClicked: {}
    }

    RefreshableList {
        id: list

        onRowsChanged: {
            if (rows.length > 0)
                root.navView.requireLookup(0, 10)
        }
        onCameToRest: root.navView.requireLookup(first, last)

        anchors.fill: parent
        cacheBuffer: 1500
        section.delegate: root.heading
        row: LibraryRow {
            width: list.width
            playerItem: modelData
            navView: root.navView
            menuVisible: root.menuVisible
        }
    }
}
