// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// A name in the player screen's top bar, in half of its width.
PlainLabel {
    y: 32
    width: parent.width / 2 - 15
    height: 45
    color: currentTheme.highlight
    font.pixelSize: 20
    wrapMode: Text.WordWrap
    elide: Text.ElideRight
}
