// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "screens/PlayerView.h"

#include "images/ImageRequest.h"
#include "navigation/Dialog.h"
#include "screens/ScreenSupport.h"

PlayerView::PlayerView(QQuickItem *parent) : QQuickItem(parent) { }

void PlayerView::setHalvora(Halvora *halvora)
{
    m_halvora = halvora;
    Q_EMIT halvoraChanged();
    ScreenSupport::followRoutes(halvora, this);
}

void PlayerView::setConnectionScreen(QQuickItem *connectionScreen)
{
    m_connectionScreen = connectionScreen;
    Q_EMIT connectionScreenChanged();
}

void PlayerView::requestImage(QString uri, QQuickItem *item)
{
    requestPicture(uri, item);
}

void PlayerView::showConnectionScreen(bool show)
{
    ScreenSupport::showOverlay(m_connectionScreen, show);
}

void PlayerView::setConnectionScreenMessage(QString message)
{
    ScreenSupport::setOverlayText(m_connectionScreen, message);
}

void PlayerView::setSelectedOutput(Output *output)
{
    QMetaObject::invokeMethod(this, "prepareDisconnectSource", Qt::DirectConnection);
    m_selectedOutput = output;
    Q_EMIT selectedOutputChanged();
}

void PlayerView::closeDialog(QQuickItem *dialog)
{
    Dialog::dispose(dialog);
}

void PlayerView::createPlaylist(QString name)
{
    const Source *source = m_selectedOutput ? m_selectedOutput->selectedSource() : nullptr;
    if (source && source->player())
        source->player()->actionCreatePlaylist(name, true);
}

void PlayerView::showSavePlaylistDialog()
{
    QQuickItem *dialog = Dialog::open(
        this, QStringLiteral("PlaylistSaveDialog.qml"), parentItem() ? parentItem()->parentItem() : nullptr,
        {tr("Save"), tr("Save current queue to a new playlist with name"), tr("Save"), tr("Cancel")});
    if (!dialog)
        return;
    connect(dialog, SIGNAL(close(QQuickItem *)), this, SLOT(closeDialog(QQuickItem *)));
    connect(dialog, SIGNAL(createPlaylist(QString)), this, SLOT(createPlaylist(QString)));
}
