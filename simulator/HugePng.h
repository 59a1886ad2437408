// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>

/// A small file that claims to be a large picture.
namespace HugePng {

/// A PNG with a right header for `width` by `width` pixels of 32 bits and hardly any data behind it.
QByteArray bytes(quint32 width);

} // namespace HugePng
