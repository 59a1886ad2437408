// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5

// A page that a start of the host need not wait for: it is made when it comes on show, or a little later, and stays
// then.
Loader {
    id: root

    anchors.fill: parent
    active: false
    onVisibleChanged: if (visible) active = true

    Timer {
        interval: 1000 // milliseconds
        running: !root.active
        onTriggered: root.active = true
    }
}
