// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// A text of one line that ends in dots where it is too long. Line breaks in a name do not make it two.
PlainLabel {
    height: 21
    elide: Text.ElideRight
    maximumLineCount: 1
}
