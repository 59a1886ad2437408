// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// One line of text across the cover.
PlainLabel {
    anchors { left: parent.left; right: parent.right; leftMargin: 15; rightMargin: 15 }
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    wrapMode: Text.WordWrap
    elide: Text.ElideRight
    maximumLineCount: 1
}
