// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/Dialog.h"
#include "navigation/PlaylistNavController.h"
#include "player/HalvoraPlayer.h"

// The dialogs of the playlists and what comes of them. They cover the whole player screen, in which the pop-up lives.

namespace {

QString nameDialogFile()
{
    return QStringLiteral("PlaylistSaveDialog.qml");
}

} // namespace

QQuickItem *PlaylistNavController::dialogParent() const
{
    return parentItem() ? parentItem()->parentItem() : nullptr;
}

void PlaylistNavController::secRightButtonClicked()
{
    QQuickItem *dialog = Dialog::open(
        this, nameDialogFile(), dialogParent(),
        {tr("New Playlist"), tr("Create new playlist with name"), tr("Save"), tr("Cancel")});
    if (!dialog)
        return;
    connect(dialog, SIGNAL(close(QQuickItem *)), this, SLOT(closeDialog(QQuickItem *)));
    connect(dialog, SIGNAL(createPlaylist(QString)), this, SLOT(createPlaylist(QString)));
}

void PlaylistNavController::openRenameDialog(const QString &uri)
{
    QQuickItem *dialog = Dialog::open(
        this, nameDialogFile(), dialogParent(),
        {tr("Rename"), tr("Rename current playlist with name"), tr("Rename"), tr("Cancel")});
    if (!dialog)
        return;
    dialog->setProperty("playlistUri", uri);
    connect(dialog, SIGNAL(close(QQuickItem *)), this, SLOT(closeDialog(QQuickItem *)));
    connect(dialog, SIGNAL(renamePlaylist(QString, QString)), this, SLOT(renamePlaylist(QString, QString)));
}

void PlaylistNavController::openDeleteDialog(const QString &uri)
{
    QQuickItem *dialog = Dialog::open(
        this, QStringLiteral("Playlists/PlaylistDeleteDialog.qml"), dialogParent(),
        {tr("Delete"), tr("Do you want to delete the playlist?"), tr("Delete"), tr("Cancel")});
    if (!dialog)
        return;
    dialog->setProperty("playlistUri", uri);
    connect(dialog, SIGNAL(close(QQuickItem *)), this, SLOT(closeDialog(QQuickItem *)));
    connect(dialog, SIGNAL(confirmDelete(QString)), this, SLOT(deletePlaylist(QString)));
}

void PlaylistNavController::closeDialog(QQuickItem *dialog)
{
    Dialog::dispose(dialog);
}

void PlaylistNavController::createPlaylist(QString name)
{
    if (player())
        player()->actionCreatePlaylist(name, false);
}

void PlaylistNavController::renamePlaylist(QString uri, QString name)
{
    if (m_currHalvora)
        m_currHalvora->actionRenamePlaylist(uri, name);
}

void PlaylistNavController::deletePlaylist(QString uri)
{
    if (m_currHalvora)
        m_currHalvora->actionDeletePlaylist(uri);
}
