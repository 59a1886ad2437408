// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.9
import halvora.host 1.0

// One line of text with its name above. Return in it submits the form.
Item {
    id: root

    property alias label: label.text
    property alias text: input.text
    property alias hint: hint.text // shows while the field is empty
    property bool secret: false
    property bool digitsOnly: false

    signal accepted()
    signal edited() // by a person

    function take() {
        input.forceActiveFocus();
        input.selectAll();
    }

    implicitHeight: 60

    HostLabel {
        id: label

        width: parent.width
        height: 20
        font.pixelSize: 14
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
    }

    Rectangle {
        y: 22
        width: parent.width
        height: 38
        radius: 5
        color: HostTheme.menu
        border { width: input.activeFocus ? 2 : 1; color: input.activeFocus ? HostTheme.highlight : HostTheme.header }

        HostLabel {
            id: hint

            anchors { fill: parent; leftMargin: 10; rightMargin: 10 }
            verticalAlignment: Text.AlignVCenter
            visible: input.text === "" && !input.activeFocus
            opacity: 0.6
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
        }

        TextInput {
            id: input

            anchors { fill: parent; leftMargin: 10; rightMargin: 10 }
            color: HostTheme.icons
            selectionColor: HostTheme.highlight
            font { family: HostTheme.font; pixelSize: 18 }
            verticalAlignment: TextInput.AlignVCenter
            renderType: Text.NativeRendering
            clip: true
            selectByMouse: true
            maximumLength: 200
            activeFocusOnTab: true
            echoMode: root.secret ? TextInput.Password : TextInput.Normal
            inputMethodHints: root.secret ? Qt.ImhSensitiveData | Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
                              : root.digitsOnly ? Qt.ImhDigitsOnly : Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
            onAccepted: root.accepted()
            onTextEdited: root.edited()
        }
    }
}
