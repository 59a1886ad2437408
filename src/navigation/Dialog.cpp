// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/Dialog.h"

#include "navigation/QmlItem.h"

#include <QQuickItem>

QQuickItem *Dialog::open(const QObject *owner, const QString &file, QQuickItem *screen, const Texts &texts)
{
    auto *dialog = newQmlItem<QQuickItem>(owner, file);
    if (!dialog)
        return nullptr;
    dialog->setParent(screen); // one that is still open ends with the screen
    dialog->setParentItem(screen);
    dialog->setProperty("headTitle", texts.headTitle);
    dialog->setProperty("bodyMessage", texts.bodyMessage);
    dialog->setProperty("okBtnText", texts.okBtnText);
    dialog->setProperty("cancBtnText", texts.cancBtnText);
    dialog->setVisible(true);
    return dialog;
}

void Dialog::dispose(QQuickItem *dialog)
{
    if (!dialog)
        return;
    dialog->setParentItem(nullptr);
    dialog->deleteLater();
}
