// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQuickItem>

/**
 * Takes back what a ListView leaves behind each time it gets a model. Qt 5.15 connects the view once more to the
 * delegateChanged() of the one QQmlDelegateModel that the view makes for all of them, and keeps every connection: a
 * queue that is polled for months would pile them up. The view has to be the parent of that QQmlDelegateModel, which
 * it is when it gets a model ahead of its delegate, and its delegate is not to change. Made in QML inside its view,
 * owned by it; GUI thread.
 */
class ListConnections : public QObject
{
    Q_OBJECT
    /// The ListView; null by default. Set once. An item without models is left alone.
    Q_PROPERTY(QQuickItem *view READ view WRITE setView NOTIFY viewChanged)

public:
    QQuickItem *view() const { return m_view; }
    void setView(QQuickItem *view);

Q_SIGNALS:
    void viewChanged();

private Q_SLOTS:
    void takeBack();

private:
    QPointer<QQuickItem> m_view;
};
