// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "screens/ScreenSupport.h"

#include "model/Halvora.h"

#include <QQuickItem>

void ScreenSupport::followRoutes(const Halvora *halvora, QQuickItem *screen)
{
    if (halvora)
        QObject::connect(halvora, SIGNAL(routesUpdated()), screen, SLOT(loadOutputs()));
}

void ScreenSupport::showOverlay(QQuickItem *overlay, bool show)
{
    if (overlay)
        overlay->setVisible(show);
}

void ScreenSupport::setOverlayText(QQuickItem *overlay, const QString &text)
{
    if (overlay)
        overlay->setProperty("connText", text);
}
