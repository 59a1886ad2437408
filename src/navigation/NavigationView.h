// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQuickItem>

/**
 * One screen of a navigation stack. It asks for others by pushView() and for its own end by popLastView().
 *
 * Made by whoever pushes it, in the GUI thread. While it is on a stack, the NavigationController is its parent
 * item, and destroys it when it is popped; a root is never destroyed by the stack.
 */
class NavigationView : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)

public:
    explicit NavigationView(QQuickItem *parent = nullptr);

    /// What the bar shows of this screen, "" by default. The bar takes it over at the stack's next operation.
    QString title() const { return m_title; }
    void setTitle(const QString &title);

Q_SIGNALS:
    void titleChanged();
    void pushView(NavigationView *view);
    void popLastView();
    void presented(); ///< it is the top now
    void dismissed(); ///< it is the top no more

private:
    QString m_title;
};
