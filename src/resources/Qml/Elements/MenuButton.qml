// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import ".."

// The dots at the lower end of a cell that open its menu.
FeedbackButton {
    anchors { right: parent.right; rightMargin: 5; bottom: parent.bottom }
    width: 50
    height: 40
    imgSource: "qrc:/HalvoraImgs/Images/menu_dots.png"
}
