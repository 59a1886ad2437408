// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "SceneVisitor.h"
#include "TourStops.h"

#include <QDir>
#include <QImage>
#include <QObject>
#include <QTimer>

class QQuickWindow;

/**
 * Walks from stop to stop and writes a picture of each: a stop is photographed when its screen is there and has been
 * at rest for a while.
 *
 * Lives in the GUI thread; the window is not owned and outlives the tour.
 */
class ScreenshotTour final : public QObject
{
    Q_OBJECT

public:
    /// `stops` are not empty.
    ScreenshotTour(QQuickWindow *window, const QString &folder, std::vector<TourStop> stops,
                   QObject *parent = nullptr);

    /// Begins; finished() tells the end. An unusable folder ends it at once.
    void start();

Q_SIGNALS:
    /// Empty when all pictures are written, else one sentence on what went wrong. Once.
    void finished(const QString &error);

private:
    void look();
    void approach(const TourStop &stop);
    void photograph(const TourStop &stop, const QImage &picture);
    void end(const QString &error);
    bool isAtRest(const QImage &picture);
    bool isReached(const TourStop &stop) const;

    QQuickWindow *m_window;
    SceneVisitor m_visitor;
    QDir m_folder;
    const std::vector<TourStop> m_stops;
    size_t m_current = 0;
    size_t m_step = 0; // of the current stop's approach
    QImage m_last;     // what the screen looked like
    int m_alike = 0;   // how many looks in a row
    int m_looks = 0;   // since the last step
    QTimer m_timer;
};
