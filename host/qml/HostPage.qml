// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import halvora.host 1.0

// A page of the host: covers everything, scrolls where the window is low, and keeps its content in a column of a
// width that can be read. What has the keys is kept in sight.
FocusScope {
    id: root

    property alias title: title.text
    default property alias content: column.data

    function keepInSight(item) {
        if (!visible || !item || flick.height <= 0)
            return;
        var lowest = Math.max(0, flick.contentHeight - flick.height); // 0 for a page that has not been laid out yet
        var top = item.mapToItem(flick.contentItem, 0, 0).y;
        if (top < flick.contentY + 20)
            flick.contentY = Math.max(0, top - 30);
        else if (top + item.height > flick.contentY + flick.height)
            flick.contentY = Math.min(lowest, top + item.height + 20 - flick.height);
    }

    anchors.fill: parent

    Rectangle {
        anchors.fill: parent
        color: HostTheme.background

        // Touches end here and not on the client below.
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            onWheel: {}
        }
    }

    Flickable {
        id: flick

        anchors.fill: parent
        contentHeight: column.height + 40
        boundsBehavior: Flickable.StopAtBounds

        Column {
            id: column

            x: Math.round((parent.width - width) / 2)
            y: Math.max(20, Math.min(60, Math.round((flick.height - height) / 2)))
            width: Math.min(flick.width - 40, 420)
            spacing: 14

            HostLabel {
                id: title

                width: parent.width
                color: HostTheme.icons
                font.pixelSize: 26
            }
        }
    }
}
