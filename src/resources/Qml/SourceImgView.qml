// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"
import "Elements/pictures.js" as Pictures

RingedDisc {
    id: root

    function resizeImage() {
        if (image.status === Image.Ready && loadCentered)
            Pictures.centre(image, imageRadius, 0.75)
    }

    onVisibleChanged: resizeImage()

    loadCentered: true
    image.source: "qrc:/HalvoraImgs/Images/source_alpha.png"

    Ring {
        anchors { horizontalCenter: undefined; centerIn: root.disc }
        diameter: root.sliderRadius
        border.width: 3
    }

    Connections {
        target: root.image
        function onStatusChanged() {
            root.resizeImage()
        }
    }

    Connections {
        target: root.disc
        function onWidthChanged() {
            root.resizeImage()
        }
        function onHeightChanged() {
            root.resizeImage()
        }
    }
}
