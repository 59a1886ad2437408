// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/NavigationController.h"

#include "navigation/QmlItem.h"

NavigationController::NavigationController(QQuickItem *parent) : QQuickItem(parent) { }

void NavigationController::setCurrentIndex(int currentIndex)
{
    m_currentIndex = currentIndex;
    Q_EMIT currentIndexChanged();
}

void NavigationController::setNavigationBar(NavigationBar *navigationBar)
{
    m_navigationBar = navigationBar;
    Q_EMIT navigationBarChanged();
}

void NavigationController::initNavigationBar()
{
    m_navigationBar = newQmlItem<NavigationBar>(this, QStringLiteral("NavigationBar.qml"));
    if (!m_navigationBar)
        return;
    connect(m_navigationBar, SIGNAL(right()), this, SIGNAL(close()));
    connect(m_navigationBar, SIGNAL(back()), this, SLOT(popLastView()));
    m_navigationBar->setVisible(true);
    m_navigationBar->setParent(this); // a parent item alone does not free it
    m_navigationBar->setParentItem(this);
}

void NavigationController::initRootView() { }

void NavigationController::setRootView(NavigationView *rootView)
{
    for (NavigationView *view : qAsConst(m_views)) {
        view->setVisible(false);
        view->setParentItem(nullptr);
    }
    m_views.clear();
    m_rootView = rootView;
    Q_EMIT rootViewChanged();
    if (!rootView || !m_navigationBar)
        return;
    place(rootView);
    m_navigationBar->setTitle(rootView->title());
    m_views.append(rootView);
    Q_EMIT rootView->presented();
    connect(rootView, SIGNAL(pushView(NavigationView *)), this, SLOT(pushView(NavigationView *)));
}

void NavigationController::pushView(NavigationView *view)
{
    if (!view || m_views.isEmpty())
        return;
    NavigationView *const below = m_views.constLast();
    Q_EMIT below->dismissed();
    connect(view, SIGNAL(pushView(NavigationView *)), this, SLOT(pushView(NavigationView *)));
    connect(view, SIGNAL(popLastView()), this, SLOT(popLastView()));
    place(view);
    view->setTitle(view->title());
    m_views.append(view);
    showTitle();
    setBack(below->title(), m_views.size() >= 2);
    Q_EMIT view->presented();
}

void NavigationController::popLastView()
{
    if (m_views.size() < 2)
        return;
    NavigationView *const removed = m_views.takeLast();
    Q_EMIT removed->dismissed();
    showTitle();
    Q_EMIT m_views.constLast()->presented();
    // Beside the chevron stands the screen that is on show now, not the one below it.
    setBack(m_views.constLast()->title(), m_views.size() >= 2);
    discard(removed);
}

void NavigationController::popToRootView()
{
    if (m_views.size() < 2)
        return;
    while (m_views.size() > 1) {
        NavigationView *const removed = m_views.takeLast();
        Q_EMIT removed->dismissed();
        discard(removed);
    }
    showTitle();
    setBack(QString(), false);
    Q_EMIT m_rootView->presented();
}

void NavigationController::place(NavigationView *view)
{
    view->setVisible(true);
    view->setParentItem(this);
    view->setPosition({0, m_navigationBar->height()});
    view->setSize({width(), height() - m_navigationBar->height()});
}

// It lives until the event loop has its turn, as whoever asked for this may be one of its own functions.
void NavigationController::discard(NavigationView *view)
{
    view->setVisible(false);
    view->setParentItem(nullptr);
    view->deleteLater();
}

void NavigationController::showTitle()
{
    m_navigationBar->setTitle(m_views.constLast()->title());
}

void NavigationController::setBack(const QString &text, bool visible)
{
    m_navigationBar->setProperty("backText", text);
    m_navigationBar->setProperty("backVisible", visible);
}
