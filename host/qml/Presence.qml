// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtQuick.Window 2.2

// Whether a person can see the window. Follows it with a short delay, so that a window that is minimised and
// restored many times in a row ends the link at most once.
Item {
    id: root

    property int windowVisibility: Window.Windowed
    property bool foreground: true
    readonly property bool settled: !delay.running // whether `foreground` says what is
    readonly property bool inSight: windowVisibility !== Window.Hidden && windowVisibility !== Window.Minimized
                                    && Qt.application.state !== Qt.ApplicationHidden
                                    && Qt.application.state !== Qt.ApplicationSuspended

    onInSightChanged: delay.restart()

    Timer {
        id: delay

        interval: 250 // milliseconds
        onTriggered: root.foreground = root.inSight
    }
}
