// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import ".."

// A music player: what it plays, and the buttons for it, which do not show while others control it. The texts are set
// from outside.
Item {
    id: root

    property var player: null
    property bool controllable: true
    readonly property alias cover: cover
    property alias title: titleLine.text
    property alias albumLine: albumLine.text

    signal libraryRequested(string file)

    CoverImgView {
        id: cover

        anchors.fill: parent
        anchors.bottomMargin: 85
    }

    TrackLine {
        id: titleLine

        anchors.bottom: cover.bottom
        anchors.bottomMargin: 30
        height: 22
        color: currentTheme.icons
        font.pixelSize: 20
    }

    TrackLine {
        id: albumLine

        anchors.bottom: cover.bottom
        anchors.bottomMargin: 10
        height: 18
        font.pixelSize: 16
    }

    FeedbackButton {
        anchors { top: parent.top; left: parent.left; margins: 15 }
        width: 50
        height: 50
        imgSource: "qrc:/HalvoraImgs/Images/library.png"
        visible: root.controllable
        onClicked: root.libraryRequested("qrc:/Qml/MusicLibraryPopup.qml")
    }

    FeedbackButton {
        anchors { top: parent.top; right: parent.right; margins: 15 }
        width: 50
        height: 50
        imgSource: "qrc:/HalvoraImgs/Images/library_search.png"
        visible: root.controllable
        onClicked: root.libraryRequested("qrc:/Qml/SearchLibraryPopup.qml")
    }

    TransportBar {
        anchors { bottom: parent.bottom; left: parent.left; right: parent.right }
        player: root.player
        visible: root.controllable
    }
}
