// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import halvora.host 1.0

// The devices, and what a person can set about the host.
HostPage {
    id: root

    property QtObject host
    property QtObject preferences
    property string connection: "" // its state in words
    property int edited: -2        // the row in the form; -1 is a new one, -2 none

    signal left()

    // Without its password there is no device, and the first page asks for it.
    function show(row) {
        host.choose(row);
        if (host.deviceHost === "")
            left();
    }

    function edit(row) {
        edited = row;
        form.fill(host.devices.fields(row));
        form.take();
    }

    function submit() {
        form.complaint = host.keep(edited, form.typed);
        if (form.complaint === "")
            leaveForm();
    }

    function leaveForm() {
        edited = -2;
        back.forceActiveFocus();
    }

    // One step back: from the form, else from the page.
    function goBack() {
        if (edited > -2)
            leaveForm();
        else
            left();
    }

    onVisibleChanged: if (visible) leaveForm()
    Component.onCompleted: if (visible) leaveForm()

    title: qsTr("Settings")

    HostLabel {
        objectName: "settingsState"
        width: parent.width
        visible: text !== ""
        text: root.connection
    }

    HostLabel {
        width: parent.width
        color: HostTheme.icons
        font.pixelSize: 18
        text: root.edited === -2 ? qsTr("Devices") : root.edited === -1 ? qsTr("Another device") : qsTr("Change the device")
    }

    Column {
        width: parent.width
        spacing: 8
        visible: root.edited === -2

        Repeater {
            model: root.host.devices

            DeviceRow {
                width: parent.width
                text: model.name
                chosen: model.chosen && root.host.remembered // not while the demo is on show
                onSelected: root.show(index)
                onChangeRequested: root.edit(index)
                onForgetRequested: root.host.forget(index)
            }
        }

        HostButton {
            width: parent.width
            text: qsTr("Add a device")
            onClicked: root.edit(-1)
        }

        HostLabel {
            width: parent.width
            font.pixelSize: 14
            text: root.host.keepsPasswords ? qsTr("Passwords are kept in the secret store of this desktop.")
                  : qsTr("This desktop has no secret store: passwords are asked for at each start.")
        }
    }

    Column {
        width: parent.width
        spacing: 14
        visible: root.edited > -2

        DeviceForm {
            id: form

            width: parent.width
            named: true
            passwordHint: root.edited >= 0 ? qsTr("as it is") : ""
            onSubmitted: root.submit()
        }

        Row {
            width: parent.width
            spacing: 8

            HostButton {
                width: Math.floor((parent.width - parent.spacing) / 2)
                text: qsTr("Keep")
                accented: true
                onClicked: root.submit()
            }

            HostButton {
                width: Math.floor((parent.width - parent.spacing) / 2)
                text: qsTr("Cancel")
                onClicked: root.leaveForm()
            }
        }
    }

    HostLabel {
        width: parent.width
        color: HostTheme.icons
        font.pixelSize: 18
        text: qsTr("Language")
        visible: root.edited === -2
    }

    Row {
        width: parent.width
        spacing: 8
        visible: root.edited === -2

        Repeater {
            model: root.preferences.languages

            HostButton {
                width: Math.floor((parent.width - 2 * parent.spacing) / 3)
                text: modelData.name
                chosen: root.preferences.language === modelData.code
                onClicked: root.preferences.language = modelData.code
            }
        }
    }

    HostButton {
        width: parent.width
        visible: root.edited === -2
        text: root.preferences.fullScreen ? qsTr("Leave the full screen (F11)")
                                           : qsTr("Take the whole screen (F11)")
        onClicked: root.preferences.fullScreen = !root.preferences.fullScreen
    }

    HostButton {
        id: back

        width: parent.width
        visible: root.edited === -2
        text: qsTr("Back")
        accented: true
        onClicked: root.left()
    }

    HostLabel {
        objectName: "settingsProblem"
        width: parent.width
        visible: text !== ""
        color: HostTheme.warning
        text: root.host.problem
    }
}
