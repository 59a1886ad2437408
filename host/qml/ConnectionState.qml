// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import halvora.host 1.0

// The state of the link in words. What the link tells the client's screens is heard at its own signals: the screens
// show it only where they lie hidden under their overlay, but a device that was lost is called again behind their back.
//
// The link itself learns late of some losses, and so does this: while it calls a lost device for the first eleven
// seconds, or a device that has joined falls silent for sixteen, it gives no sign, and the last state stands.
QtObject {
    id: root

    property QtObject host
    property Item screen: null // the screen on show

    // "reaching", "waiting", "refused", "connected" or "lost"
    property string phase: "reaching"
    property bool met: false // whether the device has told its state since the link was started from outside

    property QtObject model: null // the device's; a screen has it only while it is on show
    readonly property QtObject shownModel: screen && screen.halvora ? screen.halvora : null
    readonly property Item overlay: screen && screen.connectionScreen ? screen.connectionScreen : null
    readonly property bool covered: overlay ? overlay.visible : false // whether the client says it itself
    readonly property bool connected: phase === "connected"

    readonly property string place: (host.deviceHost.indexOf(":") < 0 ? host.deviceHost : "[" + host.deviceHost + "]")
                                    + ":" + host.devicePort
    readonly property string words: {
        switch (phase) {
        case "connected":
            return host.demo ? qsTr("Connected to the demo.") : qsTr("Connected to %1.").arg(host.deviceName);
        case "waiting":
            return qsTr("Waiting for the device to accept %1. A refusal looks the same.").arg(host.deviceUser);
        case "refused":
            return qsTr("The device does not accept %1 with this password.").arg(host.deviceUser);
        case "lost":
            return qsTr("The connection was lost; trying again.");
        }
        return qsTr("Reaching for %1 ...").arg(place);
    }

    // The link starts anew from outside.
    function begin() {
        met = false;
        phase = "reaching";
    }

    onShownModelChanged: if (shownModel) model = shownModel

    property LinkNews news: LinkNews {
        link: root.model ? root.model.connPointer : null
        onMessageSet: root.phase = message === "Authentication in progress..." ? "waiting" : root.met ? "lost" : "reaching"
        onAuthenticationRequired: root.phase = "refused"
        onScreenShown: {
            if (show)
                return;
            root.met = true;
            root.phase = "connected";
        }
    }
}
