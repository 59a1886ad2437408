// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// A circle line around the cover's disc. Not aligned to whole pixels: rings of odd and even diameters must share
// one centre.
Rectangle {
    property real diameter: 0

    anchors { horizontalCenter: parent.horizontalCenter; alignWhenCentered: false }
    width: diameter
    height: diameter
    radius: diameter / 2
    color: "transparent"
    border.color: currentTheme.icons
}
