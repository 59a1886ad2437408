// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// Twenty covers at a time; `pictures` fetches those of our own, `plain` leaves it to QML.
Grid {
    id: root

    property bool plain: false
    property var addresses: []
    property int shown: 0

    columns: 5

    Repeater {
        model: root.addresses

        Image {
            id: cover

            function updateImage(uri) {
                source = "image://async/" + uri
            }

            Component.onCompleted: {
                if (root.plain)
                    source = modelData
                else
                    pictures.request(modelData, cover)
            }
            onStatusChanged: {
                if (status === Image.Ready)
                    ++root.shown
                else if (status === Image.Error)
                    pictures.fail(modelData)
            }

            width: 100
            height: 100
            asynchronous: true
            cache: false
        }
    }
}
