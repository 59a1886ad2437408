// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "screens/OutputsView.h"

#include "images/ImageRequest.h"
#include "screens/ScreenSupport.h"

OutputsView::OutputsView(QQuickItem *parent) : QQuickItem(parent) { }

void OutputsView::setHalvora(Halvora *halvora)
{
    m_halvora = halvora;
    Q_EMIT halvoraChanged();
    ScreenSupport::followRoutes(halvora, this);
}

void OutputsView::setConnectionScreen(QQuickItem *connectionScreen)
{
    m_connectionScreen = connectionScreen;
    Q_EMIT connectionScreenChanged();
}

void OutputsView::requestImage(QString uri, QQuickItem *item)
{
    requestPicture(uri, item);
}

void OutputsView::showConnectionScreen(bool show)
{
    ScreenSupport::showOverlay(m_connectionScreen, show);
}

void OutputsView::setConnectionScreenMessage(QString message)
{
    ScreenSupport::setOverlayText(m_connectionScreen, message);
}
