// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// A name in the player screen's top bar, in half of its width. The bar has room for two lines that stand close.
PlainLabel {
    y: 32
    width: parent.width / 2 - 15
    height: 45
    color: currentTheme.highlight
    font.pixelSize: 20
    lineHeight: 21
    lineHeightMode: Text.FixedHeight
    wrapMode: Text.WordWrap
    elide: Text.ElideRight
}
