// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// What a cell with a picture shows: the picture, a title, and below it a text of some lines.
Item {
    id: root

    property bool selected: false
    property real detailRightMargin: 10
    property alias title: title.text
    property alias detail: detail.text
    property alias picture: picture

    ListPicture {
        id: picture

        x: 11
        y: 11
    }

    LineLabel {
        id: title

        x: 85
        y: 10
        width: parent.width - 95
        color: root.selected ? currentTheme.highlight : currentTheme.icons
        font.pixelSize: 17
    }

    BoxedLabel {
        id: detail

        anchors.bottom: parent.bottom
        x: 85
        width: parent.width - x - root.detailRightMargin
        height: 41
        font.pixelSize: 12
        lineHeight: 13
        lineHeightMode: Text.FixedHeight // three lines find room in whatever font
        maximumLineCount: 3
        verticalAlignment: Text.AlignVCenter
    }
}
