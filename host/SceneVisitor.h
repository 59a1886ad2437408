// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QPointF>
#include <QString>

class QQuickItem;
class QQuickWindow;

/**
 * Somebody in front of a window: sees what is on it, and touches it with mouse and key events of the window. Knows
 * the client's screens by what any host can see of them: the types' names, texts and pictures.
 *
 * A small value for the GUI thread. The window is not owned and outlives it. What is to be touched and is not there
 * gives false, and nothing is touched.
 */
class SceneVisitor final
{
public:
    explicit SceneVisitor(QQuickWindow *window) : m_window(window) { }

    bool sees(const char *type) const;
    /// The number of pictures from a server that are loaded in the topmost item of a type; 0 without one.
    int covers(const char *type) const;

    /// Taps the topmost item whose property (a text, a picture's address) ends with `value`.
    bool tap(const char *property, const QString &value) const;
    /// Taps the item of a type that is at this place, from 0, in reading order.
    bool tapNth(const char *type, int place) const;
    /// Presses on such an item, moves by so many pixels and lets go.
    bool dragNth(const char *type, int place, const QPointF &by) const;
    /// Presses the keys of a text, one after the other; the line feed is the return key.
    bool type(const QString &text) const;

private:
    bool touch(const QQuickItem *item, const QPointF &by = {}) const;
    void mouse(int eventType, const QPointF &place, ulong time) const; // in milliseconds

    QQuickWindow *m_window;
};
