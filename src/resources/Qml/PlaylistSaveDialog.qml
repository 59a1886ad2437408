// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtQuick.Controls 1.2
import QtQuick.Controls.Styles 1.2
import "Elements"

// Asks for the name of a new playlist, or for the new name of the one called `playlistUri`.
ModalDialog {
    id: root

    signal createPlaylist(string name)
    signal renamePlaylist(string uri, string name)
    signal requireKeyboard(TextField textF)
    signal dismissKeyboard()

    onOkClicked: {
        if (playlistUri !== "")
            renamePlaylist(playlistUri, field.text)
        else
            createPlaylist(field.text)
        close(root)
    }
    onCancelClicked: close(root)

    TextField {
        id: field

        onActiveFocusChanged: {
            if (activeFocus) {
                root.requireKeyboard(field)
            } else {
                Qt.inputMethod.hide()
                root.dismissKeyboard()
            }
        }
        onAccepted: focus = false

        width: parent.width
        height: 35
        font { family: "Arial Unicode MS"; pixelSize: 20 }

        style: TextFieldStyle {
            textColor: "black"
            background: Rectangle {
                color: "transparent"
                border { width: 1; color: "lightgray" }
            }
        }
    }
}
