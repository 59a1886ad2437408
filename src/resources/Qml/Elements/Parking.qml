// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// Where a pop-up waits that is moved in from below: park() puts it below its parent without sliding, for which its
// Behavior is to be enabled by `settled` alone. A scene may go through odd sizes before it has its own, and the first
// one must not send the panel sliding across the screen.
QtObject {
    id: root

    property Item panel: null
    property bool settled: false
    property real restingPlace: 0

    function park() {
        settled = false
        restingPlace = panel.parent.height
        panel.y = restingPlace
        settled = true
    }

    // For a parent of a new size.
    function parkUnlessOpen() {
        if (!settled || panel.y >= restingPlace || panel.y > panel.parent.height / 2)
            park()
    }
}
