// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import ".."
import "pictures.js" as Pictures

// One output in the list: cover, name, what plays, mute and volume.
Item {
    id: root

    property var output: null
    property var selectedSource: output ? output.selectedSource : null
    readonly property var player: currentPlayer()
    property int volume: output ? output.volume : 0

    signal coverClicked()
    signal muteClicked()
    signal volumeChosen(int value)
    signal pictureWanted(string uri, Item cover)

    // Asked afresh by each function: a handler may run before the bindings have caught up.
    function currentPlayer() {
        return selectedSource ? selectedSource.player : null
    }

    function updatePicture() {
        var player = currentPlayer()
        if (!player)
            return
        if (player.airPlay) {
            if (player.airPlayImage === "")
                cover.coverSource = "qrc:/HalvoraImgs/Images/airplay_alpha.png"
        } else if (player.currentSong && player.currentSong.smallImgPath !== "") {
            pictureWanted(player.currentSong.smallImgPath, cover)
        } else {
            cover.coverSource = Pictures.accented("defaultcoverart", currentTheme)
        }
    }

    function playedText() {
        var player = currentPlayer()
        if (player && player.airPlay && player.airPlayTrack !== "")
            return player.airPlayTrack + " - " + player.airPlayArtist
        if (player && !player.airPlay && player.currentSong)
            return player.currentSong.name + " - " + player.currentSong.artistsString
        return selectedSource.name
    }

    function updateText() {
        secondLine.text = selectedSource ? playedText() : ""
    }

    // The source or its player is another one.
    function followSource() {
        if (!selectedSource)
            cover.coverSource = ""
        else if (currentPlayer())
            updatePicture()
        else
            cover.coverSource = "qrc:/HalvoraImgs/Images/source_alpha.png"
        updateText()
    }

    onSelectedSourceChanged: followSource()
    onPlayerChanged: followSource()
    onVolumeChanged: {
        if (!slider.sliding)
            slider.value = volume
    }
    Component.onCompleted: slider.value = volume

    height: 90

    Connections {
        target: root.player
        function onAirPlayChanged() { root.updatePicture() }
        function onAirPlayImageChanged() { root.updatePicture() }
        function onCurrentSongImageChanged() { root.updatePicture() }
        function onAirPlayTrackChanged() { root.updateText() }
        function onAirPlayAlbumChanged() { root.updateText() }
        function onAirPlayArtistChanged() { root.updateText() }
        function onCurrentSongChanged() {
            root.updatePicture()
            root.updateText()
        }
    }

    CoverImgS {
        id: cover

        x: 15
        y: 7

        MouseArea {
            anchors.fill: parent
            onClicked: root.coverClicked()
        }
    }

    PlainLabel {
        x: 105
        y: 10
        width: parent.width - 165
        height: 22
        text: root.output ? root.output.name : ""
        color: currentTheme.highlight
        font.pixelSize: 18
        elide: Text.ElideRight
    }

    PlainLabel {
        id: secondLine

        x: 105
        y: 32
        width: parent.width - 165
        height: 14
        color: currentTheme.icons
        font.pixelSize: 12
        wrapMode: Text.WordWrap
        elide: Text.ElideRight
        maximumLineCount: 1
    }

    FeedbackButton {
        anchors { top: parent.top; topMargin: 15; right: parent.right; rightMargin: 10 }
        width: 50
        height: 50
        imgSource: root.output && root.output.mute
                   ? Pictures.accented("mute_small", currentTheme)
                   : "qrc:/HalvoraImgs/Images/sound_small.png"
        onClicked: root.muteClicked()
    }

    HorizontalSlider {
        id: slider

        x: 105
        y: 60
        width: parent.width - 135
        height: 30
        trackHeight: 4
        knobHeight: 16
        onNewValueToSend: root.volumeChosen(value)
    }
}
