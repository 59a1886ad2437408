// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtQuick.Controls 1.2
import ".."

// What to search for, and where.
Rectangle {
    id: root

    property alias filterTitle: filterName.text

    signal search(string text)
    signal filtersRequested()
    signal requireKeyboard(TextField textF)
    signal dismissKeyboard()

    function submit() {
        if (field.text !== "")
            search(field.text)
    }

    height: 88
    color: currentTheme.menu

    KeyboardField {
        id: field

        onRequireKeyboard: root.requireKeyboard(textF)
        onDismissKeyboard: root.dismissKeyboard()
        Keys.onReturnPressed: {
            focus = false
            root.submit()
        }

        anchors { top: parent.top; topMargin: 4; left: parent.left; leftMargin: 5; right: searchButton.left; rightMargin: 5 }
        font.pixelSize: 18
        ground: Rectangle {
            radius: 5
            color: "white"
        }
    }

    FeedbackButton {
        id: searchButton

        anchors { top: parent.top; right: parent.right; margins: 5 }
        width: 80
        height: 40
        text: "Search"
        textSize: 18
        onClicked: root.submit()
    }

    FeedbackButton {
        anchors { bottom: parent.bottom; left: parent.left; margins: 5 }
        width: 110
        height: 40
        text: "Show filters"
        textSize: 18
        onClicked: root.filtersRequested()
    }

    PlainLabel {
        id: filterName

        anchors { bottom: parent.bottom; right: parent.right; margins: 15 }
        width: parent.width / 2
        color: currentTheme.icons
        font.pixelSize: 18
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
    }
}
