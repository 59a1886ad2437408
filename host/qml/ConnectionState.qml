// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// The state of the link in words, read off the overlay that the client lays over its screens while there is none.
QtObject {
    id: root

    property QtObject host
    property Item screen: null // the screen on show
    property bool answered: false // since the last start of the link

    readonly property Item overlay: screen && screen.connectionScreen ? screen.connectionScreen : null
    readonly property bool waiting: overlay ? overlay.visible : true
    readonly property string said: overlay ? overlay.connText : ""
    readonly property string place: (host.deviceHost.indexOf(":") < 0 ? host.deviceHost : "[" + host.deviceHost + "]")
                                    + ":" + host.devicePort
    readonly property string words: {
        if (!waiting && answered)
            return "Connected to " + host.deviceName + ".";
        if (said === "Authentication in progress...")
            return "Waiting for the device to accept " + host.deviceUser + ". A refusal looks the same.";
        return answered ? "The connection was lost; trying again." : "Reaching for " + place + " ...";
    }
}
