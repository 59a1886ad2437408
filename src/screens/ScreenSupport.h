// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

class QQuickItem;
class QString;
class Halvora;

/// What the two screens do alike. GUI thread; null items and devices are left alone, nothing is owned.
namespace ScreenSupport {

/// Has `screen`'s QML function loadOutputs() called at each routesUpdated() of `halvora`. Each call adds one
/// connection, also for a device that is connected already; reloading twice does no harm.
void followRoutes(const Halvora *halvora, QQuickItem *screen);

void showOverlay(QQuickItem *overlay, bool show);
void setOverlayText(QQuickItem *overlay, const QString &text);

} // namespace ScreenSupport
