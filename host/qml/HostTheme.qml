// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

pragma Singleton
import QtQuick 2.0

// The colours of the client, which it publishes when it is loaded first; before that, the same ones from here.
QtObject {
    readonly property QtObject published: typeof currentTheme === "undefined" ? null : currentTheme

    readonly property color background: published ? published.background : "#1D252B"
    readonly property color menu: published ? published.menu : "#2F363C"
    readonly property color header: published ? published.header : "#4A555D"
    readonly property color highlight: published ? published.highlight : "#6E99C7"
    readonly property color icons: published ? published.icons : "#EEEEEE"
    readonly property color text: published ? published.text : "#A5ACAD"
    readonly property color warning: "#F0A35E"
    readonly property string imgSuffix: published ? published.imgSuffix : "_0"
    readonly property string font: "Arial Unicode MS"
}
