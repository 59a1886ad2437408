// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "SceneVisitor.h"

#include "SceneSearch.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickWindow>

bool SceneVisitor::sees(const char *type) const
{
    return SceneSearch::ofType(m_window->contentItem(), type) != nullptr;
}

int SceneVisitor::covers(const char *type) const
{
    QQuickItem *screen = SceneSearch::ofType(m_window->contentItem(), type);
    return SceneSearch::loadedPictures(screen).filter(QStringLiteral("image://async/")).size();
}

bool SceneVisitor::tap(const char *property, const QString &value) const
{
    return touch(SceneSearch::withText(m_window->contentItem(), property, value));
}

bool SceneVisitor::tapNth(const char *type, int place) const
{
    return dragNth(type, place, {});
}

bool SceneVisitor::dragNth(const char *type, int place, const QPointF &by) const
{
    return touch(SceneSearch::allOfType(m_window->contentItem(), type).value(place), by);
}

bool SceneVisitor::type(const QString &text) const
{
    for (const QChar &letter : text) {
        const bool ends = letter == QLatin1Char('\n');
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, ends ? int(Qt::Key_Return) : letter.toUpper().unicode(), Qt::NoModifier,
                            ends ? QStringLiteral("\r") : QString(letter));
            QCoreApplication::sendEvent(m_window, &event);
        }
    }
    return true;
}

// At a person's pace: a list tells a drag from a flick, and both from nothing, by the time between the events.
bool SceneVisitor::touch(const QQuickItem *item, const QPointF &by) const
{
    if (!item)
        return false;
    constexpr int moves = 5;
    constexpr int pace = 20;  // milliseconds
    constexpr int rest = 300; // long enough for a list not to fly on
    const QPointF start = item->mapToScene(item->boundingRect().center());
    ulong time = ulong(QDateTime::currentMSecsSinceEpoch());
    mouse(QEvent::MouseButtonPress, start, time);
    for (int move = 1; !by.isNull() && move <= moves; ++move)
        mouse(QEvent::MouseMove, start + by * move / moves, time += pace);
    mouse(QEvent::MouseButtonRelease, start + by, time + (by.isNull() ? pace : rest));
    return true;
}

void SceneVisitor::mouse(int eventType, const QPointF &place, ulong time) const
{
    const auto type = QEvent::Type(eventType);
    const QPointF global = m_window->mapToGlobal(place.toPoint());
    QMouseEvent event(type, place, place, global, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    event.setTimestamp(time);
    QCoreApplication::sendEvent(m_window, &event);
}
