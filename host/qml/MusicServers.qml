// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import QtQml 2.2

// The music servers that do not answer, in words. Nobody else tells: the player screen of such a source stays empty.
QtObject {
    id: root

    property QtObject model: null // the device's
    property bool watching: false // whether the players are to be connected
    property int firstPatience: 8000  // milliseconds from the making of a player to its first answer
    property int laterPatience: 75000 // milliseconds between two answers

    property var silent: [] // the names of their sources
    readonly property string words: silent.length === 0 ? ""
        : silent.length === 1 ? qsTr("The music server of %1 does not answer.").arg(silent[0])
                              : qsTr("The music servers of %1 do not answer.").arg(silent.join(", "))

    function count() {
        var names = [];
        for (var i = 0; i < servers.count; ++i) {
            var server = servers.objectAt(i);
            if (server && server.silent)
                names.push(server.name);
        }
        silent = names;
    }

    property Instantiator servers: Instantiator {
        id: servers

        model: root.model ? root.model.sources : null
        onObjectAdded: root.count()
        onObjectRemoved: root.count()
        delegate: MusicServer {
            source: modelData
            watching: root.watching
            firstPatience: root.firstPatience
            laterPatience: root.laterPatience
            onSilentChanged: root.count()
        }
    }
}
