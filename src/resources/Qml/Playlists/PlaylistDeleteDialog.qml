// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import "../Elements"

// Asks before a playlist is deleted.
ModalDialog {
    id: root

    signal confirmDelete(string uri)

    onOkClicked: {
        confirmDelete(playlistUri)
        close(root)
    }
    onCancelClicked: close(null) // names no dialog on purpose: it stays until it is answered with OK
}
