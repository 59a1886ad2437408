// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0

// The ground of the matrix's head: a diagonal that parts the titles of the rows from those of the columns.
Canvas {
    id: root

    function polygon(context, color, points) {
        context.fillStyle = color
        context.beginPath()
        context.moveTo(points[0][0], points[0][1])
        for (var i = 1; i < points.length; ++i)
            context.lineTo(points[i][0], points[i][1])
        context.closePath()
        context.fill()
    }

    onPaint: {
        var context = getContext("2d")
        context.clearRect(0, 0, width, height)
        polygon(context, currentTheme.header, [[0, 0], [100, height], [0, height]])
        polygon(context, currentTheme.background, [[0, 0], [100, height], [width, height], [width, 0]])
    }
}
