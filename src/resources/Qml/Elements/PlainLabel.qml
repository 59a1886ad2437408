// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// Text as all screens write it. Names come from devices and servers, so markup in them is shown, not followed. It is drawn
// from its own pixels, crisp, and cheap without a graphics card; what is scaled or turned has to ask for QtRendering.
Text {
    color: currentTheme.text
    font.family: "Arial Unicode MS"
    textFormat: Text.PlainText
    renderType: Text.NativeRendering
}
