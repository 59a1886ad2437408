// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtQuick.Controls 1.2
import QtQuick.Controls.Styles 1.2

// A line to type in. It says when a keyboard on the screen would be of use, and `ground` is what it stands on.
TextField {
    id: root

    property Component ground

    signal requireKeyboard(TextField textF)
    signal dismissKeyboard()

    onActiveFocusChanged: {
        if (activeFocus) {
            requireKeyboard(root)
        } else {
            Qt.inputMethod.hide()
            dismissKeyboard()
        }
    }

    height: 35
    font.family: "Arial Unicode MS"
    style: TextFieldStyle {
        textColor: "black"
        background: root.ground
    }
}
