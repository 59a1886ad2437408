// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// Text as all screens write it. Names come from devices and servers, so markup in them is shown, not followed.
Text {
    color: currentTheme.text
    font.family: "Arial Unicode MS"
    textFormat: Text.PlainText
    renderType: Text.NativeRendering // crisp where nothing scales or turns it, and cheap to draw where no graphics card does
}
