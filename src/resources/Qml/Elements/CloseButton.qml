// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import ".."

FeedbackButton {
    anchors { top: parent.top; topMargin: 5; left: parent.left; leftMargin: 15 }
    width: 30
    height: 30
    imgSource: "qrc:/HalvoraImgs/Images/eqclose.png"
}
