// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "navigation/NavigationBar.h"
#include "navigation/NavigationView.h"

#include <QList>

/**
 * A stack of screens below a title bar: the newest covers the others, back takes it away. Screens come and go at
 * once, and keep the size that they were given when they were placed.
 *
 * Made by a pop-up's QML, in the GUI thread. It destroys the views that it pops and no others; its own end
 * destroys none, which is up to its subclasses. A bar has to be made before views can be placed: without one, which
 * only a broken resource set can cause at that point, they are not.
 */
class NavigationController : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentIndexChanged)
    Q_PROPERTY(
        NavigationBar *navigationBar READ navigationBar WRITE setNavigationBar NOTIFY navigationBarChanged)
    Q_PROPERTY(NavigationView *rootView READ rootView WRITE setRootView NOTIFY rootViewChanged)

public:
    explicit NavigationController(QQuickItem *parent = nullptr);

    /// A place to note a number, -1 by default; the stack neither reads nor writes it.
    int currentIndex() const { return m_currentIndex; }
    void setCurrentIndex(int currentIndex);
    /// The title bar; null before initNavigationBar().
    NavigationBar *navigationBar() const { return m_navigationBar; }
    void setNavigationBar(NavigationBar *navigationBar);
    /// The lowest screen; null by default. A new one takes all others off the screen, and destroys none of them.
    NavigationView *rootView() const { return m_rootView; }
    void setRootView(NavigationView *rootView);

    /// Makes the bar. Its right button emits close(), its back button pops.
    Q_INVOKABLE void initNavigationBar();
    /// Makes and sets the root view; each kind of stack has its own. Nothing here.
    Q_INVOKABLE virtual void initRootView();

Q_SIGNALS:
    void currentIndexChanged();
    void navigationBarChanged();
    void rootViewChanged();
    void close();

public Q_SLOTS:
    // Connected by signature, so that a subclass's slot of the same name is what views and the bar reach.

    /// Puts a view on top. There must be a root; a null view does nothing.
    void pushView(NavigationView *view);
    /// Takes the top view away and destroys it; the root stays.
    void popLastView();
    /// Takes away and destroys all views but the root.
    void popToRootView();

protected:
    const QList<NavigationView *> &views() const { return m_views; } ///< the root first, the top last

private:
    void place(NavigationView *view);
    void discard(NavigationView *view);
    void showTitle();
    void setBack(const QString &text, bool visible);

    QList<NavigationView *> m_views;
    int m_currentIndex = -1;
    NavigationBar *m_navigationBar = nullptr;
    NavigationView *m_rootView = nullptr;
};
