// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import com.kestrum.halvoraint 1.0

BrowseNavController {
    id: root

    Component.onCompleted: {
        menu.park()
        initNavigationBar()
        initRootView()
    }
    onHeightChanged: menu.parkUnlessOpen()

    anchors.fill: parent
    moreMenu: menu

    Rectangle {
        anchors.fill: parent
        color: currentTheme.background
    }

    MoreMenu {
        id: menu

        onClose: retire()
    }
}
