// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0

PlayerView {
    id: root

    signal requireSelectOutput(int output)

    function loadOutputs() {
    }

    function closeAllPopups() {
    }

    function prepareDisconnectSource() {
    }

    width: parent ? parent.width : 0
    height: parent ? parent.height : 0

    Rectangle {
        anchors.fill: parent
        color: currentTheme.background
    }
}
