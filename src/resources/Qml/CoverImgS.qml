// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "Elements"
import "Elements/pictures.js" as Pictures

Rectangle {
    id: root

    property string coverSource: ""
    property bool loadCentered: false

    function updateImage(uri) {
        coverSource = uri
    }

    // A picture that is larger than the circle is fitted into it whole.
    function resizeImage() {
        Pictures.setSize(image, width, height)
        if (!Pictures.isLargerThan(image.sourceSize, width))
            return
        if (loadCentered)
            Pictures.centre(image, width, 0.75)
        else
            Pictures.fit(image, width, true)
    }

    onCoverSourceChanged: {
        if (coverSource !== "")
            image.source = Pictures.sourceOf(coverSource)
        loadCentered = coverSource === "qrc:/HalvoraImgs/Images/source_alpha.png"
                || coverSource === "qrc:/HalvoraImgs/Images/airplay_alpha.png"
    }
    onLoadCenteredChanged: resizeImage()

    width: 75
    height: 75
    radius: width / 2
    color: currentTheme.highlight
    clip: true

    RoundImage {
        id: image

        anchors.centerIn: parent
        asynchronous: true
        onStatusChanged: {
            if (status === Image.Ready)
                root.resizeImage()
        }
    }
}
