// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0
import "Elements"

OutputsView {
    id: root

    property int workingModality: 0 // 0: the outputs in their own order, 1: grouped by source

    signal requireSelectOutput(int output)

    function loadOutputs() {
        outputs.model = halvora ? halvora.outputs : []
        matrixPopup.load(halvora)
    }

    function sourceWithIndex(text) {
        for (var i = 0; halvora && i < halvora.sources.length; ++i) {
            if (String(halvora.sources[i].index) === text)
                return halvora.sources[i]
        }
        return null
    }

    onHeightChanged: matrixPopup.parkUnlessOpen()

    // Off the screen it keeps its size.
    width: parent ? parent.width : width
    height: parent ? parent.height : height
    connectionScreen: overlay

    Rectangle {
        anchors.fill: parent
        color: currentTheme.background
    }

    Item {
        anchors { top: topBar.bottom; bottom: parent.bottom; left: parent.left; right: parent.right }
        clip: true

        ListView {
            id: list

            anchors.fill: parent
            model: SortedOutputs {
                id: outputs

                sortOrder: root.workingModality
                view: list
                delegate: OutputRow {
                    width: list.width
                    output: modelData
                    onCoverClicked: root.requireSelectOutput(output.index)
                    onMuteClicked: root.halvora.actionSetMuteForOutput(!output.mute, output.index)
                    onVolumeChosen: {
                        if (root.halvora) // a drag ends when the screen is taken down
                            root.halvora.actionSetVolumeForOutput(value, output.index)
                    }
                    onPictureWanted: root.requestImage(uri, cover)
                }
            }

            section.delegate: SourceBand {
                width: list.width
                currentSource: root.sourceWithIndex(section)
                onVolumeChosen: {
                    if (root.halvora)
                        root.halvora.actionSetVolumeForSource(value, currentSource.index)
                }
            }
        }
    }

    Rectangle {
        id: topBar

        width: parent.width
        height: 65
        color: currentTheme.menu

        FeedbackButton {
            anchors { top: parent.top; topMargin: 15; right: parent.right; rightMargin: 15 }
            width: 50
            height: 50
            imgSource: "qrc:/HalvoraImgs/Images/matrix.png"
            onClicked: {
                matrixPopup.selectedOutput = -1
                matrixPopup.y = matrixPopup.y >= root.height ? topBar.height : root.height
            }
        }

        FeedbackButton {
            x: 5
            y: 20
            width: 80
            height: 40
            text: "Show all"
            textSize: 15
            textColor: root.workingModality === 0 ? currentTheme.highlight : currentTheme.icons
            onClicked: root.workingModality = 0
        }

        FeedbackButton {
            x: 90
            y: 20
            width: 130
            height: 40
            text: "Show by source"
            textSize: 15
            textColor: root.workingModality === 1 ? currentTheme.highlight : currentTheme.icons
            onClicked: root.workingModality = 1
        }
    }

    MatrixPopup {
        id: matrixPopup

        y: root.height
        width: root.width
        height: root.height - topBar.height
        onSetInputForOutput: root.halvora.actionSetMatrixSetting(source, output)
    }

    ConnectionOverlay {
        id: overlay
    }
}
