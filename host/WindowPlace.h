// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

class QWindow;

/**
 * Shows a window where it stood at the end of the last run, as large as it was then, or on the whole screen. A place
 * that is on no screen now is corrected, so that the whole window, or as much of it as fits, can be reached.
 *
 * Belongs to whoever makes the window, and ends before it; GUI thread. The place is kept at that end; a full screen
 * or an icon is no place, the one before it is kept then.
 */
class WindowPlace final
{
public:
    enum class Memory { Used, Unused };

    /// `window` is not shown yet. A valid `size` is taken instead of the kept one.
    WindowPlace(QWindow *window, const QSize &size, Memory memory);
    ~WindowPlace();
    Q_DISABLE_COPY(WindowPlace)

    /// Shows the window, on the whole screen or in its place. Also where no window manager does that.
    void show(bool fullScreen);

    /// `frame` moved, and made smaller where it must be, to lie within `screen`.
    static QRect onScreen(const QRect &frame, const QRect &screen);

private:
    void recall(const QSize &size);
    void put(const std::optional<QPoint> &position, const QSize &size);
    void follow();

    QObject m_following; // ends the connections
    QWindow *m_window;
    Memory m_memory;
    std::optional<QPoint> m_position; // of the frame; without one the window manager finds a place
    QSize m_size;                     // of the content
};
