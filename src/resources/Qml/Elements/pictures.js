// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

.pragma library

// Pictures of our own are read from the resources, all others from the pictures that have been fetched.
function sourceOf(uri) {
    return uri.substring(0, 5) === "qrc:/" ? uri : "image://async/" + uri
}

// Our own picture of that name in the theme's accent.
function accented(stem, theme) {
    return "qrc:/HalvoraImgs/Images/" + stem + theme.imgSuffix + ".png"
}

function isLargerThan(source, side) {
    return source.width > side || source.height > side
}

function setSize(image, width, height) {
    image.width = width
    image.height = height
}

// `part` of the circle's width, the height after the picture's own proportions.
function centre(image, side, part) {
    var width = side * part
    setSize(image, width, width * image.sourceSize.height / image.sourceSize.width)
}

// The picture's longer side, or its shorter one, as long as the circle's diameter.
function fit(image, side, byLonger) {
    var source = image.sourceSize
    var reference = byLonger ? Math.max(source.width, source.height) : Math.min(source.width, source.height)
    var scale = reference / side
    setSize(image, source.width / scale, source.height / scale)
}
