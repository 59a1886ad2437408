// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import ".."

// The five buttons of a music player. Without a player they do nothing.
Item {
    id: root

    property var player: null
    readonly property real stepMargin: 65 + (width / 2 - 97.5) / 2 - 25

    function picture(stem, selected) {
        return "qrc:/HalvoraImgs/Images/" + stem + (selected ? "_sel" + currentTheme.imgSuffix : "") + ".png"
    }

    function playOrPause() {
        if (player.playPause === 2)
            player.actionPause()
        else
            player.actionPlay()
    }

    height: 75
    enabled: player !== null

    FeedbackButton {
        anchors { bottom: parent.bottom; bottomMargin: 13; left: parent.left; leftMargin: 15 }
        width: 50
        height: 50
        imgSource: root.picture("repeat", root.player && root.player.repeat)
        onClicked: root.player.actionRepeat()
    }

    FeedbackButton {
        anchors { bottom: parent.bottom; bottomMargin: 13; left: parent.left; leftMargin: root.stepMargin }
        width: 50
        height: 50
        imgSource: root.picture("prev", false)
        onClicked: root.player.actionPrevious()
    }

    PlayButton {
        anchors { bottom: parent.bottom; bottomMargin: 5; horizontalCenter: parent.horizontalCenter }
        width: 65
        height: 65
        applyMask: true
        imgSource: root.picture(root.player && root.player.playPause === 2 ? "pause" : "play", false)
        onClicked: root.playOrPause()
    }

    FeedbackButton {
        anchors { bottom: parent.bottom; bottomMargin: 13; right: parent.right; rightMargin: root.stepMargin }
        width: 50
        height: 50
        imgSource: root.picture("next", false)
        onClicked: root.player.actionNext()
    }

    FeedbackButton {
        anchors { bottom: parent.bottom; bottomMargin: 13; right: parent.right; rightMargin: 15 }
        width: 50
        height: 50
        imgSource: root.picture("shuffle", root.player && root.player.shuffle)
        onClicked: root.player.actionShuffle()
    }
}
