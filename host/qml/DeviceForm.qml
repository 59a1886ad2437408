// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import halvora.host 1.0

// How to reach and enter a device. Bad input stays in the fields, with a complaint below.
Column {
    id: root

    property bool named: false // whether the device can be given a name here
    property string passwordHint: ""
    property alias complaint: complaint.text
    readonly property var typed: ({ name: name.text, host: host.text, port: port.text, user: user.text,
                                    password: password.text })

    signal submitted()
    signal edited() // by a person

    function fill(fields) {
        name.text = fields.name;
        host.text = fields.host;
        port.text = fields.port;
        user.text = fields.user;
        password.text = "";
        complaint.text = "";
    }

    // Where a person goes on typing.
    function take() {
        var first = named ? name : host.text === "" ? host : password;
        first.take();
    }

    spacing: 10

    HostField {
        id: name

        objectName: "name"
        width: parent.width
        visible: root.named
        label: qsTr("Name")
        hint: qsTr("as the address")
        onAccepted: root.submitted()
        onEdited: root.edited()
    }

    Row {
        width: parent.width
        spacing: 10

        HostField {
            id: host

            objectName: "host"
            width: parent.width - port.width - parent.spacing
            label: qsTr("Address of the device")
            hint: "192.168.1.20"
            onAccepted: root.submitted()
            onEdited: root.edited()
        }

        HostField {
            id: port

            objectName: "port"
            width: 90
            label: qsTr("Port")
            hint: "5000"
            digitsOnly: true
            onAccepted: root.submitted()
            onEdited: root.edited()
        }
    }

    HostField {
        id: user

        objectName: "user"
        width: parent.width
        label: qsTr("User")
        onAccepted: root.submitted()
        onEdited: root.edited()
    }

    HostField {
        id: password

        objectName: "password"
        width: parent.width
        label: qsTr("Password")
        hint: root.passwordHint
        secret: true
        onAccepted: root.submitted()
        onEdited: root.edited()
    }

    HostLabel {
        id: complaint

        objectName: "complaint"
        width: parent.width
        visible: text !== ""
        color: HostTheme.warning
    }
}
