// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "dashes.js" as Dashes

// One output in the matrix: its title and a line with a place for each source, the knob on the routed one.
Item {
    id: root

    property var output: null
    property bool current: false
    property real cellWidth: 0
    property int columns: 0
    property var columnOf: null
    property int selectedIndex: -1
    property var selectedSource: output ? output.selectedSource : null

    signal titleClicked()
    signal cellClicked(int column)

    function followSource() {
        if (!selectedSource) {
            selectedIndex = -1
            return
        }
        var column = columnOf ? columnOf(selectedSource) : -1
        if (column !== -1)
            selectedIndex = column
    }

    // A click on the routed cell switches the route off. The knob goes ahead of the device's answer.
    function clickCell(column) {
        selectedIndex = column === selectedIndex ? -1 : column
        cellClicked(selectedIndex)
    }

    onCurrentChanged: line.requestPaint()
    onCellWidthChanged: line.requestPaint()
    onSelectedSourceChanged: followSource()
    Component.onCompleted: followSource()

    height: 50

    Rectangle {
        width: 100
        height: parent.height
        color: currentTheme.header

        PlainLabel {
            y: 5
            width: 100
            height: 40
            text: root.output ? root.output.name : ""
            color: root.current ? currentTheme.highlight : currentTheme.icons
            font.pixelSize: 14
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            wrapMode: Text.WordWrap
            elide: Text.ElideRight
        }

        MouseArea {
            anchors.fill: parent
            onClicked: root.titleClicked()
        }
    }

    Canvas {
        id: line

        onPaint: {
            var context = getContext("2d")
            var guide = root.current ? currentTheme.highlight : currentTheme.text
            context.clearRect(0, 0, width, height)
            Dashes.horizontal(context, guide, 0, width, height / 2)
            for (var i = 0; i < root.columns; ++i)
                Dashes.vertical(context, currentTheme.text, root.cellWidth * (i + 0.5), 5, height)
        }

        anchors { left: parent.left; leftMargin: 100; right: parent.right }
        height: parent.height

        MouseArea {
            anchors.fill: parent
            enabled: root.columns > 0
            onClicked: root.clickCell(Math.floor(mouse.x / root.cellWidth))
        }

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            x: root.cellWidth * (root.selectedIndex + 0.5) - width / 2
            width: 30
            height: 30
            radius: 15
            color: currentTheme.background
            border { width: 2; color: currentTheme.highlight }
            visible: root.selectedIndex !== -1

            Behavior on x {
                NumberAnimation { duration: 200 }
            }
        }
    }
}
