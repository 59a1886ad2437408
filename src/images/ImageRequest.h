// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

class QQuickItem;

/// What the screens call for a picture: `item`'s function updateImage(uri) is called at once when the picture of that
/// URL is kept, and otherwise when it has been fetched. GUI thread; `item` is not owned.
void requestPicture(const QString &uri, QQuickItem *item);
