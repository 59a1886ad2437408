// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// A pop-up that stays in the scene and is moved in from below. Whoever places it opens and closes it by `y`; park()
// puts it below its parent without sliding, for a parent that gets a new size.
Rectangle {
    id: root

    function park() {
        parking.park()
    }

    function parkUnlessOpen() {
        parking.parkUnlessOpen()
    }

    color: currentTheme.menu
    clip: true

    Behavior on y {
        enabled: parking.settled
        NumberAnimation { duration: 300 }
    }

    Parking {
        id: parking

        panel: root
    }

    // Touches end here and not on the screen below.
    MouseArea {
        anchors.fill: parent
        onClicked: {}
    }
}
