// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5

// Whether the music server of one source answers. A player tells of nothing but answers: a first one soon after it was
// made, and from then on one at least with each full poll, of which there is one a minute.
QtObject {
    id: root

    property QtObject source: null
    property bool watching: false
    property int firstPatience // both in milliseconds
    property int laterPatience

    property bool silent: false
    readonly property string name: source ? source.name : ""
    readonly property QtObject player: source ? source.player : null

    function begin() {
        wait(firstPatience);
    }

    function wait(patience) {
        silent = false;
        timer.interval = patience;
        timer.stop();
        if (player && watching)
            timer.start();
    }

    onPlayerChanged: begin()
    onWatchingChanged: begin()
    Component.onCompleted: begin()

    property Connections answers: Connections {
        target: root.player
        function onFiltersChanged() { root.wait(root.laterPatience); }
        function onPlayPauseChanged() { root.wait(root.laterPatience); }
        function onCurrentSongChanged() { root.wait(root.laterPatience); }
        function onQueueChanged() { root.wait(root.laterPatience); }
    }

    property Timer timer: Timer {
        id: timer

        onTriggered: root.silent = true
    }
}
