// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

.pragma library

// Dashed guide lines for a Canvas: dashes of 3 every 8. Coordinates are moved to the middle of a pixel, so that a
// line of width 1 is crisp.
var dash = 3
var period = 8

function stroke(context, style, addDashes) {
    context.lineWidth = 1
    context.strokeStyle = style
    context.beginPath()
    addDashes()
    context.stroke()
}

function horizontal(context, style, from, to, y) {
    var line = Math.floor(y) + 0.5
    stroke(context, style, function () {
        for (var x = from; x < to; x += period) {
            context.moveTo(x, line)
            context.lineTo(Math.min(x + dash, to), line)
        }
    })
}

function vertical(context, style, x, from, to) {
    var line = Math.floor(x) + 0.5
    stroke(context, style, function () {
        for (var y = from; y < to; y += period) {
            context.moveTo(line, y)
            context.lineTo(line, Math.min(y + dash, to))
        }
    })
}
