// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.5
import halvora.host 1.0

// Text of the host's pages. What people and devices have written is shown as it stands.
Text {
    color: HostTheme.text
    font { family: HostTheme.font; pixelSize: 16 }
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    renderType: Text.NativeRendering
}
