// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"

// The routing grid: a column for each source, a row for each output. Columns and rows are told to the outside by
// their positions.
SlidingPanel {
    id: root

    property alias sourcesModel: header.rows
    property alias outputsModel: rows.rows
    property alias selectedOutput: rows.currentIndex
    property bool selectionEnabled: false

    signal setInputForOutput(int source, int output)
    signal requireSelectOutput(int output)

    readonly property real cellWidth: header.count > 0 ? header.width / header.count : 0

    // Takes the lists of a device, or empties the grid for none. The view would select its first row.
    function load(halvora) {
        var selected = selectedOutput
        sourcesModel = halvora ? halvora.sources : []
        outputsModel = halvora ? halvora.outputs : []
        selectedOutput = selected
    }

    // -1 for a source that has no column.
    function columnOf(source) {
        for (var i = 0; i < header.count; ++i) {
            if (sourcesModel[i].index === source.index)
                return i
        }
        return -1
    }

    CloseButton {
        onClicked: root.y = root.parent.height
    }

    MatrixHeader {
        id: headerGround

        anchors { top: parent.top; topMargin: 50; left: parent.left; leftMargin: 15; right: parent.right; rightMargin: 15 }
        height: 100
    }

    ReloadedList {
        id: header

        anchors { top: parent.top; topMargin: 50; left: parent.left; leftMargin: 115; right: parent.right; rightMargin: 15 }
        height: 100
        orientation: ListView.Horizontal
        interactive: false

        row: Item {
            width: root.cellWidth
            height: header.height

            // Turned about its end, which stays above the middle of the column.
            PlainLabel {
                x: parent.width / 2 - width
                y: parent.height - height
                width: 120
                height: 20
                text: modelData.name
                color: currentTheme.icons
                font.pixelSize: 14
                horizontalAlignment: Text.AlignRight
                wrapMode: Text.WordWrap
                elide: Text.ElideRight
                renderType: Text.QtRendering
                rotation: 45
                transformOrigin: Item.BottomRight
            }
        }
    }

    Item {
        anchors {
            top: header.bottom
            bottom: parent.bottom
            bottomMargin: 5
            left: parent.left
            leftMargin: 15
            right: parent.right
            rightMargin: 15
        }
        clip: true

        ReloadedList {
            id: rows

            anchors.fill: parent
            currentIndex: -1

            row: MatrixRow {
                // `index` is the output's own number here; the position is the view's to say.
                function position() {
                    return rows.indexAt(x, y)
                }

                width: rows.width
                output: modelData
                current: ListView.isCurrentItem
                cellWidth: root.cellWidth
                columns: header.count
                columnOf: root.columnOf
                onTitleClicked: {
                    if (!root.selectionEnabled)
                        return
                    root.requireSelectOutput(output.index)
                    root.y = root.parent.height
                }
                onCellClicked: root.setInputForOutput(column, position())
            }
        }
    }
}
