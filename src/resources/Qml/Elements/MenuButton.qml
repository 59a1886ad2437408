// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import ".."

// The dots at the lower end of a cell that open its menu. `margin` is the one below them.
FeedbackButton {
    property real margin: 0

    anchors { right: parent.right; rightMargin: 5; bottom: parent.bottom; bottomMargin: margin }
    width: 50
    height: 40
    imgSource: "qrc:/HalvoraImgs/Images/menu_dots.png"
}
