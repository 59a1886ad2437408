// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "pictures.js" as Pictures

// The picture of a list row: `imgSource`, or our own one called `defaultStem` while that is "".
Image {
    property string imgSource: ""
    property string defaultStem: "defaultcoverart"

    width: 64
    height: 64
    source: imgSource === "" ? Pictures.accented(defaultStem, currentTheme) : Pictures.sourceOf(imgSource)
    fillMode: Image.PreserveAspectFit
    cache: false
}
