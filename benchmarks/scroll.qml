// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// The peer of the client's list: each row has one text and one picture, as Qt draws them unless told otherwise. With
// `drawnAlike` the text is drawn as the client's is, with `allLines` it has the three lines that the client shows.
ListView {
    model: holder.allSortedItems
    cacheBuffer: 1500
    delegate: Item {
        width: ListView.view.width
        height: 75

        Image {
            x: 11
            y: 11
            width: 64
            height: 64
            source: "image://async/" + modelData.smallImgPath
            fillMode: Image.PreserveAspectFit
            cache: false
        }

        Text {
            x: 85
            y: 10
            text: allLines ? modelData.name + "\n" + modelData.album + "\n" + modelData.artistsString : modelData.name
            color: "white"
            font.family: "Arial Unicode MS"
            font.pixelSize: 17
            textFormat: Text.PlainText
            renderType: drawnAlike ? Text.NativeRendering : Text.QtRendering
        }
    }
}
