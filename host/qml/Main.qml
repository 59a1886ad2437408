// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import QtQuick.Window 2.2
import halvora.host 1.0

// The window: the client, and over it the host's own pages while they are needed. The client is made anew for each
// device and each language, as it reads both when it is made.
Window {
    id: window

    property QtObject host
    property QtObject preferences
    property bool asking: false  // whether the first page is on
    property bool setting: false // whether the settings are

    function remake() {
        if (client.item)
            client.item.leave();
        client.active = false;
        client.active = host.deviceHost !== "";
    }

    // A device that was typed in on the first page has to answer before that page goes.
    function follow() {
        asking = host.deviceHost === "" || host.trying;
        remake();
        if (start.item && !host.trying) // else it begins when it is made
            start.item.begin();
    }

    function openSettings() {
        setting = true;
    }

    function closeSettings() {
        setting = false;
        if (!asking)
            client.forceActiveFocus();
    }

    onActiveFocusItemChanged: {
        var page = (setting ? settings : start).item;
        if (page)
            page.keepInSight(activeFocusItem);
    }

    width: 450
    height: 710
    minimumWidth: 340
    minimumHeight: 520
    title: "Halvora"
    color: HostTheme.background

    Component.onCompleted: follow()

    Connections {
        target: window.host
        function onDeviceChanged() {
            window.follow();
        }
    }

    Connections {
        target: window.preferences
        function onLanguageChanged() {
            if (start.item)
                start.item.forgetComplaint();
            window.remake();
        }
    }

    // Not sized by its parent alone: that is 0 until the window is shown, and the first screen would take it over.
    Loader {
        id: client

        width: window.width
        height: window.height
        active: false
        enabled: !window.asking && !window.setting
        sourceComponent: ClientPage {
            width: client.width
            height: client.height
            host: window.host
            windowVisibility: window.visibility
            onSettingsRequested: window.openSettings()
            onAnswered: {
                window.asking = false;
                window.host.deviceAnswered();
            }
        }
    }

    LazyPage {
        id: start

        visible: window.asking && !window.setting
        sourceComponent: StartPage {
            host: window.host
            connection: client.item ? client.item.connection : ""
            onSettingsRequested: window.openSettings()
        }
    }

    LazyPage {
        id: settings

        visible: window.setting
        sourceComponent: SettingsPage {
            host: window.host
            preferences: window.preferences
            connection: client.item ? client.item.connection : ""
            onLeft: window.closeSettings()
        }
    }

    Shortcut {
        sequence: "F11"
        context: Qt.ApplicationShortcut
        onActivated: window.preferences.fullScreen = !window.preferences.fullScreen
    }

    Shortcut {
        sequence: "Escape"
        context: Qt.ApplicationShortcut
        onActivated: window.setting ? settings.item.goBack() : window.host.closePopup(client.item)
    }
}
