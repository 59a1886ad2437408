// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0

// A list that gets a new model over and over and costs no more for it. Its delegate is not to change.
ListView {
    id: root

    model: 0 // ahead of the delegate: the view is then the parent of what it makes for its models

    ListConnections {
        view: root
    }
}
