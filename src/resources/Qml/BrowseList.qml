// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0
import "Elements"

BrowseListView {
    id: navView

    property bool insidePlaylistView: false

    onRowTypesChanged: rows.load()
    onNeedRefresh: rows.refreshItems()

    LibraryList {
        id: rows

        anchors.fill: parent
        navView: navView
        menuVisible: !navView.insidePlaylistView
        heading: Item {
            width: rows.width
            height: 44

            PlainLabel {
                anchors.fill: parent
                anchors.leftMargin: 15
                text: section
                font.pixelSize: 11
                font.capitalization: Font.AllUppercase
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
            }
        }
    }
}
