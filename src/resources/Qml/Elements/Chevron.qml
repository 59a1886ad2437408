// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// An open arrowhead through three points of the item; by itself it points to the right.
Canvas {
    id: root

    property var points: [[2, 2], [width - 2, height / 2], [2, height - 2]]

    onPaint: {
        var context = getContext("2d")
        context.clearRect(0, 0, width, height)
        context.lineWidth = 2
        context.strokeStyle = currentTheme.text
        context.beginPath()
        context.moveTo(points[0][0], points[0][1])
        context.lineTo(points[1][0], points[1][1])
        context.lineTo(points[2][0], points[2][1])
        context.stroke()
    }

    width: 12
    height: 20
}
