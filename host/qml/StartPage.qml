// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import halvora.host 1.0

// Asks for the device to show, or for the password of the one that was chosen last.
HostPage {
    id: root

    property QtObject host
    property string connection: "" // its state in words

    signal settingsRequested()

    // Begins with what is known of a device.
    function begin() {
        form.fill(host.devices.fields(host.devices.current));
        if (visible)
            form.take();
    }

    function submit() {
        form.complaint = host.connectTo(form.typed);
    }

    // What was complained of in another language.
    function forgetComplaint() {
        form.complaint = "";
    }

    onVisibleChanged: if (visible) form.take()
    Component.onCompleted: begin()

    title: "Halvora"

    HostLabel {
        width: parent.width
        text: qsTr("Which device is it? Whoever set it up knows its address, port and user.")
    }

    DeviceForm {
        id: form

        width: parent.width
        onSubmitted: root.submit()
        onEdited: root.host.typing()
    }

    HostButton {
        width: parent.width
        text: qsTr("Connect")
        accented: true
        onClicked: root.submit()
    }

    HostButton {
        width: parent.width
        text: qsTr("Try the demo")
        onClicked: form.complaint = root.host.showDemo()
    }

    HostButton {
        width: parent.width
        text: qsTr("Settings")
        onClicked: root.settingsRequested()
    }

    HostLabel {
        objectName: "startState"
        width: parent.width
        visible: text !== ""
        text: root.connection
    }

    HostLabel {
        objectName: "startProblem"
        width: parent.width
        visible: text !== ""
        color: HostTheme.warning
        text: root.host.problem
    }
}
