// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

class QObject;
class QQuickItem;

/// The modal dialogs of the screens. GUI thread.
namespace Dialog {

/// What stands in it.
struct Texts
{
    QString headTitle;
    QString bodyMessage;
    QString okBtnText;
    QString cancBtnText;
};

/// Makes the dialog of a QML file in the engine and context of `owner` and shows it all over `screen`. Whoever opens it
/// connects its signals and ends it by dispose(); it ends with `screen` at the latest. Null when there is no such dialog.
QQuickItem *open(const QObject *owner, const QString &file, QQuickItem *screen, const Texts &texts);

/// Takes a dialog off the screen and frees it with the next turn of the event loop. Null does nothing.
void dispose(QQuickItem *dialog);

} // namespace Dialog
