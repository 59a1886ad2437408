// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "ScreenshotTour.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QStyleHints>

namespace {

constexpr int lookInterval = 100;  // milliseconds
constexpr int looksAtRest = 5;     // the screens' animations run for 300 ms
constexpr int mostLooks = 200;     // 20 s for one step
constexpr int looksForCovers = 50; // not every house has covers

constexpr char overlay[] = "ConnectionOverlay";

} // namespace

ScreenshotTour::ScreenshotTour(QQuickWindow *window, const QString &folder, std::vector<TourStop> stops,
                               QObject *parent)
    : QObject(parent), m_window(window), m_visitor(window), m_folder(folder), m_stops(std::move(stops))
{
    QGuiApplication::styleHints()->setCursorFlashTime(0); // a blinking cursor never rests
    m_timer.setInterval(lookInterval);
    connect(&m_timer, &QTimer::timeout, this, &ScreenshotTour::look);
}

void ScreenshotTour::start()
{
    if (m_folder.mkpath(QStringLiteral(".")))
        m_timer.start();
    else
        end(tr("The folder \"%1\" cannot be made.").arg(m_folder.path()));
}

void ScreenshotTour::look()
{
    const TourStop &stop = m_stops.at(m_current);
    const QImage picture = m_window->grabWindow();
    if (isAtRest(picture)) {
        if (m_step < stop.approach.size())
            approach(stop);
        else if (isReached(stop))
            return photograph(stop, picture);
    }
    if (++m_looks == mostLooks)
        end(tr("The screen \"%1\" did not come.").arg(stop.name));
}

bool ScreenshotTour::isAtRest(const QImage &picture)
{
    m_alike = !picture.isNull() && picture == m_last ? m_alike + 1 : 0;
    m_last = picture;
    return m_alike >= looksAtRest;
}

void ScreenshotTour::approach(const TourStop &stop)
{
    if (!stop.approach.at(m_step)())
        return;
    ++m_step;
    m_looks = 0;
    m_alike = 0;
}

bool ScreenshotTour::isReached(const TourStop &stop) const
{
    if (!m_visitor.sees(stop.screen) || (m_visitor.sees(overlay) && qstrcmp(stop.screen, overlay) != 0))
        return false;
    return m_looks >= looksForCovers || m_visitor.covers(stop.screen) >= stop.covers;
}

void ScreenshotTour::photograph(const TourStop &stop, const QImage &picture)
{
    const QString file = m_folder.filePath(stop.name + QStringLiteral(".png"));
    if (!picture.save(file))
        return end(tr("The picture \"%1\" cannot be written.").arg(file));
    m_step = 0;
    m_looks = 0;
    m_alike = 0;
    if (++m_current == m_stops.size())
        end({});
}

void ScreenshotTour::end(const QString &error)
{
    m_timer.stop();
    Q_EMIT finished(error);
}
