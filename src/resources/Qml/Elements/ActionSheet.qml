// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.logic 1.0
import com.kestrum.translations 1.0
import ".."

// A full-size sheet that offers actions for one item: its cover, its name, and a row for each action.
SlidingPanel {
    id: root

    property PlayerItem selectedItem
    property alias cover: cover
    property alias firstRow: firstRow
    property alias menu: menu
    readonly property real menuTop: 175
    property var quoted: ({}) // what the text of a key ends with

    signal actionChosen(string key)
    signal close()

    // The rows are made anew, as the same keys may stand for another name.
    function offer(keys) {
        quoted = { "It_PlayNow": selectedItem.name, "It_ShowAlbum": selectedItem.album }
        menu.rows = keys
    }

    function rowText(key) {
        var text = translator.translate(key)
        return quoted[key] === undefined ? text : text + " \"" + quoted[key] + "\""
    }

    // Slides out; whoever opened it calls this on close().
    function retire() {
        y = parent.height
        selectedItem = null
    }

    width: parent.width
    height: parent.height

    DynamicTranslator {
        id: translator
    }

    CloseButton {
        onClicked: root.close()
    }

    CoverImgS {
        id: cover

        x: 15
        y: 60
        width: 100
        height: 100
    }

    BoxedLabel {
        id: firstRow

        anchors { left: cover.right; leftMargin: 10; right: parent.right; rightMargin: 15; top: cover.top }
        height: 50
        font.pixelSize: 18
        elide: Text.ElideRight
    }

    Item {
        anchors { fill: parent; topMargin: root.menuTop; leftMargin: 15; rightMargin: 15; bottomMargin: 15 }
        clip: true

        ReloadedList {
            id: menu

            anchors.fill: parent

            row: BoxedLabel {
                width: menu.width
                height: 50
                color: currentTheme.icons
                font.pixelSize: 16
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                Component.onCompleted: text = root.rowText(modelData)

                MouseArea {
                    anchors.fill: parent
                    onClicked: root.actionChosen(modelData)
                }
            }
        }
    }
}
