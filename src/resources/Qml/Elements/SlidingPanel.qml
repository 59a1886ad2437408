// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// A pop-up that stays in the scene and is moved in from below. Whoever places it opens and closes it by `y`; park()
// puts it below its parent without sliding, for a parent that gets a new size.
Rectangle {
    id: root

    property bool settled: false
    property real restingPlace: 0

    function park() {
        settled = false
        restingPlace = parent.height
        y = restingPlace
        settled = true
    }

    // For a parent of a new size. A scene may go through odd sizes before it has its own.
    function parkUnlessOpen() {
        if (!settled || y >= restingPlace || y > parent.height / 2)
            park()
    }

    color: currentTheme.menu
    clip: true

    // The parent's first size must not send the panel sliding across the screen.
    Behavior on y {
        enabled: root.settled
        NumberAnimation { duration: 300 }
    }

    // Touches end here and not on the screen below.
    MouseArea {
        anchors.fill: parent
        onClicked: {}
    }
}
