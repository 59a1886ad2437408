// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QDir>
#include <QImage>
#include <QObject>
#include <QTimer>

#include <functional>
#include <vector>

class QQuickItem;
class QQuickWindow;

/**
 * Walks through the client's screens with mouse events of the window, as a person would, and writes a picture of
 * each: a stop is photographed when its screen is there and has been at rest for a while.
 *
 * Lives in the GUI thread; the window is not owned and outlives the tour. Knows the screens by what any host can
 * see of them: the types' names, their properties, their texts and pictures.
 */
class ScreenshotTour final : public QObject
{
    Q_OBJECT

public:
    ScreenshotTour(QQuickWindow *window, const QString &folder, QObject *parent = nullptr);

    /// Begins; finished() tells the end. An unusable folder ends it at once.
    void start();

Q_SIGNALS:
    /// Empty when all pictures are written, else one sentence on what went wrong. Once.
    void finished(const QString &error);

private:
    struct Stop
    {
        QString name;                   ///< of the picture, and of the screen in a complaint
        std::function<bool()> approach; ///< clicks towards the screen; tried again until it is true
        std::function<bool()> arrived;  ///< whether the screen shows what it must
    };

    void look();
    void photograph(const QImage &picture);
    void end(const QString &error);
    bool isAtRest(const QImage &picture);

    QQuickItem *shown(const char *type) const;
    bool isConnected(const char *type) const;
    bool areCoversThere(int atLeast) const; ///< or have had their time
    bool isMatrixOpen() const;
    bool clickOn(const char *property, const QString &value) const;
    bool clickAt(const QPointF &place) const;

    QQuickWindow *m_window;
    QDir m_folder;
    std::vector<Stop> m_stops;
    size_t m_current = 0;
    bool m_approached = false;
    QImage m_last;   // what the screen looked like
    int m_alike = 0; // how many looks in a row
    int m_looks = 0; // at this stop
    QTimer m_timer;
};
