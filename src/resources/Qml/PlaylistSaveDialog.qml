// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtQuick.Controls 1.2
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

    KeyboardField {
        id: field

        onRequireKeyboard: root.requireKeyboard(textF)
        onDismissKeyboard: root.dismissKeyboard()
        onAccepted: focus = false

        width: parent.width
        font.pixelSize: 20
        ground: Rectangle {
            color: "transparent"
            border { width: 1; color: "lightgray" }
        }
    }
}
