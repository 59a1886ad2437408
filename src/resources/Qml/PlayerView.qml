// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0
import "Elements"
import "Playlists"

PlayerView {
    id: root

    readonly property var player: currentPlayer()
    readonly property bool isAirPlay: player ? player.airPlay : false
    property int outputVolume: selectedOutput ? selectedOutput.volume : 0

    signal requireSelectOutput(int output)

    function picture(name) {
        return "qrc:/HalvoraImgs/Images/" + name + ".png"
    }

    function currentSource() {
        return selectedOutput ? selectedOutput.selectedSource : null
    }

    function currentPlayer() {
        var source = currentSource()
        return source ? source.player : null
    }

    function loadOutputs() {
        matrixPopup.load(halvora)
    }

    // The output's row in the matrix; -1 for none.
    function rowOf(output) {
        for (var i = 0; output && halvora && i < halvora.outputs.length; ++i) {
            if (halvora.outputs[i].index === output.index)
                return i
        }
        return -1
    }

    function toggleMatrix() {
        matrixPopup.selectedOutput = rowOf(selectedOutput)
        matrixPopup.y = matrixPopup.y >= height ? topBar.height : height
    }

    // Library and search come to life over all tabs, and go when they are closed.
    function openLibrary(file) {
        var component = Qt.createComponent(file)
        if (component.status !== Component.Ready)
            return
        var popup = component.createObject(playerView.parent.parent.parent, { "currentPlayer": player })
        popup.rootView.title = currentSource().name
        popup.close.connect(popup.destroy)
    }

    function toggleQueue() {
        if (queuePopup.y < height - 75) {
            queuePopup.y = height
            queuePopup.currentPlayer = null
        } else {
            queuePopup.y = 15
            queuePopup.currentPlayer = currentPlayer()
        }
    }

    function closeQueue() {
        queuePopup.prepareDisconnection()
        queuePopup.y = height + 5
        queuePopup.currentPlayer = null
    }

    function togglePlaylists() {
        if (playlistPopup.y < height) {
            console.debug("Closing Playlist popup...")
            playlistPopup.y = height
            playlistPopup.currHalvora = null
            playlistPopup.currPlayer = null
            return
        }
        playlistPopup.y = 0
        playlistPopup.firstShown = null
        if (halvora)
            playlistPopup.currHalvora = halvora
        if (currentPlayer())
            playlistPopup.currPlayer = currentPlayer()
    }

    function closePlaylists() {
        playlistPopup.y = height + 5
        playlistPopup.popToRootView()
        playlistPopup.currPlayer = null
        playlistPopup.currHalvora = null
    }

    function toggleEqualizer() {
        equalizer.y = equalizer.y >= height ? 302 : height
    }

    function saveEqualizer(bass, middle, treble, loudness) {
        if (halvora && selectedOutput)
            halvora.actionSetEqualizerForOutput([selectedOutput.index, bass, middle, treble, loudness].join("|"))
    }

    function closeAllPopups() {
        matrixPopup.y = height
        queuePopup.y = height
        playlistPopup.y = height
        equalizer.y = height
    }

    function prepareDisconnectSource() {
        if (!selectedOutput)
            return
        selectedOutput.selectedSourceChanged.disconnect(onSelectedSourceChanged)
        prepareDisconnectPlayer()
    }

    function prepareDisconnectPlayer() {
        var player = currentPlayer()
        if (!player)
            return
        var disconnect = function (event, reaction) { event.disconnect(reaction) }
        eachConnection(player, onCurrentSongChanged, disconnect)
        eachConnection(player, updateTrack, disconnect)
    }

    // What the screen follows on a player.
    function eachConnection(player, songReaction, visit) {
        visit(player.airPlayChanged, songReaction)
        visit(player.currentSongChanged, songReaction)
        visit(player.airPlayTrackChanged, updateTrackInfo)
        visit(player.airPlayAlbumChanged, updateTrackInfo)
        visit(player.airPlayArtistChanged, updateTrackInfo)
        visit(player.airPlayImageChanged, updateTrackImage)
        visit(player.currentSongImageChanged, updateTrackImage)
    }

    function showLists(show) {
        queueButton.visible = show
        playlistButton.visible = show
    }

    // Also behind another tab, where nothing of this counts as visible, whatever it is set to.
    function showSource(source, songReaction) {
        var hasPlayer = source !== null && source.player !== null
        topBar.sourceName = source ? source.name : ""
        playerView.visible = hasPlayer
        sourceView.visible = source !== null && !hasPlayer
        showLists(hasPlayer)
        if (!hasPlayer)
            return
        eachConnection(source.player, songReaction, function (event, reaction) { event.connect(reaction) })
        songReaction()
    }

    // A route that moves on the same output leaves the old player connected: its signals cause updates of what is
    // shown now, and no more.
    function onSelectedSourceChanged() {
        showSource(currentSource(), onCurrentSongChanged)
    }

    // Each list of sources that the device sends brings new players, which know no song yet.
    function onSourcePlayerChanged() {
        showSource(currentSource(), updateTrack)
    }

    // For a player that has a song. Without one it ends in an error on the console, and what was shown before stays.
    // A player from before a route change may still speak when there is none to show.
    function onCurrentSongChanged() {
        var player = currentPlayer()
        if (!player)
            return
        player.currentSong.currTimeChanged.connect(updateTrackTime)
        showLists(!player.airPlay)
        updateTrackInfo()
        updateTrackImage()
        updateTrackTime()
    }

    // What is shown stays until a new player has something to say.
    function updateTrack() {
        var player = currentPlayer()
        if (player && player.currentSong) {
            onCurrentSongChanged()
        } else if (player && player.airPlay) {
            showLists(false)
            updateTrackInfo()
            updateTrackImage()
        }
    }

    function joined(first, second) {
        return first !== "" && second !== "" ? first + " - " + second : first + second
    }

    // On AirPlay, as the player says itself: a binding may still be one step behind.
    function onAirPlay(player) {
        return player ? player.airPlay : false
    }

    function updateTrackInfo() {
        var player = currentPlayer()
        var song = player ? player.currentSong : null
        if (onAirPlay(player)) {
            playerView.title = player.airPlayTrack
            playerView.albumLine = joined(player.airPlayAlbum, player.airPlayArtist)
        } else {
            playerView.title = song ? song.name : ""
            playerView.albumLine = song ? joined(song.album, song.artistsString) : ""
        }
    }

    function updateTrackImage() {
        var player = currentPlayer()
        var song = player ? player.currentSong : null
        var airPlay = onAirPlay(player)
        var uri = airPlay ? player.airPlayImage : song ? song.mediumImgPath : ""
        if (uri !== "")
            requestImage(uri, playerView.cover)
        else
            playerView.cover.coverSource = picture((airPlay ? "airplay_sel" : "defaultcoverart") + currentTheme.imgSuffix)
    }

    function updateTrackTime() {
        var player = currentPlayer()
        if (onAirPlay(player))
            return
        var song = player ? player.currentSong : null
        playerView.cover.progress = song && song.duration > 0 ? song.currTime / song.duration : 0
    }

    onSelectedOutputChanged: {
        topBar.outputName = selectedOutput ? selectedOutput.name : ""
        if (!selectedOutput)
            return
        selectedOutput.selectedSourceChanged.connect(onSelectedSourceChanged)
        onSelectedSourceChanged()
    }
    onHalvoraChanged: {
        if (halvora)
            loadOutputs()
    }
    onOutputVolumeChanged: {
        if (!volumeSlider.sliding)
            volumeSlider.value = outputVolume
    }
    onHeightChanged: {
        matrixPopup.parkUnlessOpen()
        queuePopup.parkUnlessOpen()
        playlistPopup.parkUnlessOpen()
        equalizer.parkUnlessOpen()
    }

    // Off the screen it keeps its size.
    width: parent ? parent.width : width
    height: parent ? parent.height : height
    connectionScreen: overlay

    Connections {
        target: root.currentSource()
        function onPlayerChanged() {
            root.onSourcePlayerChanged()
        }
    }

    Rectangle {
        anchors.fill: parent
        color: currentTheme.background
    }

    PlayerTopBar {
        id: topBar

        onClicked: root.toggleMatrix()
    }

    NowPlaying {
        id: playerView

        anchors { top: topBar.bottom; left: parent.left; right: parent.right }
        height: root.height - 182
        visible: false
        player: root.player
        controllable: !root.isAirPlay
        onLibraryRequested: root.openLibrary(file)
    }

    SourceImgView {
        id: sourceView

        anchors { top: topBar.bottom; left: parent.left; right: parent.right }
        height: root.height - 267
        visible: false
    }

    HorizontalSlider {
        id: volumeSlider

        anchors { top: playerView.bottom; topMargin: 10; left: parent.left; leftMargin: 20; right: parent.right; rightMargin: 20 }
        height: 30
        trackHeight: 8
        knobHeight: 20
        onNewValueToSend: {
            if (root.halvora && root.selectedOutput)
                root.halvora.actionSetVolumeForOutput(value, root.selectedOutput.index)
        }
    }

    FeedbackButton {
        id: queueButton

        anchors { top: playerView.bottom; topMargin: 45; left: parent.left; leftMargin: 15 }
        width: 50
        height: 50
        imgSource: root.picture("queue")
        visible: false
        onClicked: root.toggleQueue()
    }

    FeedbackButton {
        id: playlistButton

        anchors { top: playerView.bottom; topMargin: 45; left: queueButton.right; leftMargin: 15 }
        width: 50
        height: 50
        imgSource: root.picture("playlists")
        onClicked: root.togglePlaylists()
    }

    FeedbackButton {
        anchors { top: playerView.bottom; topMargin: 45; right: muteButton.left; rightMargin: 15 }
        width: 50
        height: 50
        imgSource: root.picture("equilizer")
        onClicked: root.toggleEqualizer()
    }

    FeedbackButton {
        id: muteButton

        anchors { top: playerView.bottom; topMargin: 45; right: parent.right; rightMargin: 15 }
        width: 50
        height: 50
        imgSource: !root.selectedOutput ? ""
                 : root.picture(root.selectedOutput.mute ? "mute" + currentTheme.imgSuffix : "sound")
        onClicked: {
            if (root.selectedOutput)
                root.halvora.actionSetMuteForOutput(!root.selectedOutput.mute, root.selectedOutput.index)
        }
    }

    Equalizer {
        id: equalizer

        y: root.height
        width: root.width
        height: root.height - 302
        bassValue: root.selectedOutput ? root.selectedOutput.bass : 0
        middleValue: root.selectedOutput ? root.selectedOutput.middle : 0
        trebleValue: root.selectedOutput ? root.selectedOutput.treble : 0
        loudnessValue: root.selectedOutput ? root.selectedOutput.loudness : 0
        onSaveEqualizer: root.saveEqualizer(bass, middle, treble, loudness)
    }

    QueueView {
        id: queuePopup

        onClose: root.closeQueue()
        onRequireOpenSaveDialog: root.showSavePlaylistDialog()

        y: root.height
        width: root.width
        height: root.height
    }

    PlaylistsNavPopup {
        id: playlistPopup

        onClose: root.closePlaylists()

        y: root.height
        width: root.width
        height: root.height
    }

    MatrixPopup {
        id: matrixPopup

        y: root.height
        width: root.width
        height: root.height - topBar.height
        selectionEnabled: true
        onSetInputForOutput: root.halvora.actionSetMatrixSetting(source, output)
        onRequireSelectOutput: root.requireSelectOutput(output)
    }

    ConnectionOverlay {
        id: overlay
    }
}
