// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// A text that is wrapped between words and cut by its own box: a word may be wider than the box.
PlainLabel {
    wrapMode: Text.WordWrap
    clip: contentWidth > width || contentHeight > height // a clip costs a list its batching
}
