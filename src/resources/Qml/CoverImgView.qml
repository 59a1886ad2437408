// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtGraphicalEffects 1.0
import "Elements"
import "Elements/pictures.js" as Pictures

RingedDisc {
    id: root

    property string coverSource: ""
    property double progress: 0

    function updateImage(uri) {
        coverSource = uri
    }

    // A picture that is larger than the disc fills it, and the disc cuts what is over.
    function resizeImage() {
        Pictures.setSize(image, imageRadius, imageRadius)
        if (!Pictures.isLargerThan(image.sourceSize, imageRadius))
            return
        if (loadCentered)
            Pictures.centre(image, imageRadius, 0.75)
        else
            Pictures.fit(image, imageRadius, false)
    }

    onCoverSourceChanged: {
        if (coverSource === "")
            return
        image.source = Pictures.sourceOf(coverSource)
        backdrop.source = image.source
    }
    onLoadCenteredChanged: resizeImage()
    onImageRadiusChanged: resizeImage()
    onProgressChanged: progressRing.requestPaint()

    Image {
        id: backdrop

        anchors.fill: parent
        fillMode: Image.PreserveAspectCrop
        visible: false
    }

    // The first blur of a process asks a graphics context of its own what it can do: not while the client starts.
    Loader {
        anchors.fill: parent
        z: -1
        active: backdrop.source.toString() !== ""
        sourceComponent: GaussianBlur {
            source: backdrop
            radius: 10
            samples: 16
            opacity: 0.3
            cached: true
        }
    }

    Canvas {
        id: progressRing

        function circle(context, style, from, to) {
            context.strokeStyle = style
            context.beginPath()
            context.arc(width / 2, height / 2, root.sliderRadius / 2, from, to)
            context.stroke()
        }

        onPaint: {
            var context = getContext("2d")
            var top = -Math.PI / 2
            context.clearRect(0, 0, width, height)
            if (root.sliderRadius <= 0) // a low screen has no room for it
                return
            context.lineWidth = 3
            circle(context, currentTheme.icons, 0, 2 * Math.PI)
            if (root.progress > 0)
                circle(context, currentTheme.highlight, top, root.progress * 2 * Math.PI + top)
        }
        onWidthChanged: requestPaint()

        anchors { centerIn: root.disc; alignWhenCentered: false }
        width: root.sliderRadius + 3
        height: root.sliderRadius + 3
    }

    Connections {
        target: root.image
        function onStatusChanged() {
            if (root.image.status === Image.Ready)
                root.resizeImage()
        }
    }
}
