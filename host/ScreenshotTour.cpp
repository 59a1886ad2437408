// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "ScreenshotTour.h"

#include "SceneSearch.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

constexpr int lookInterval = 100;  // milliseconds
constexpr int looksAtRest = 5;     // the screens' animations run for 300 ms
constexpr int mostLooks = 200;     // 20 s at one stop
constexpr int looksForCovers = 50; // not every house has covers

constexpr char outputsView[] = "OutputsView";
constexpr char playerView[] = "PlayerView";

const QPointF firstCover(52, 109); // of the first row on the outputs screen, from the screen's corner

QString words(const char *text)
{
    return QLatin1String(text);
}

} // namespace

ScreenshotTour::ScreenshotTour(QQuickWindow *window, const QString &folder, QObject *parent)
    : QObject(parent), m_window(window), m_folder(folder)
{
    const auto matrixButton = [this] { return clickOn("source", words("/matrix.png")); };
    // While the matrix slides away it still takes the clicks.
    const auto firstOutput = [=] { return isMatrixOpen() ? !matrixButton() : clickAt(firstCover); };
    const auto stay = [] { return true; };
    m_stops = {
        {words("01-outputs"), stay,
         [this] { return isConnected(outputsView) && !isMatrixOpen() && areCoversThere(2); }},
        {words("02-by-source"), [this] { return clickOn("text", words("Show by source")); },
         [this] {
             return isConnected(outputsView) && shown(outputsView)->property("workingModality").toInt() == 1;
         }},
        {words("03-matrix"), [=] { return clickOn("text", words("Show all")) && matrixButton(); },
         [this] { return isMatrixOpen(); }},
        {words("04-player"), firstOutput, [this] { return isConnected(playerView) && areCoversThere(1); }},
    };
    m_timer.setInterval(lookInterval);
    connect(&m_timer, &QTimer::timeout, this, &ScreenshotTour::look);
}

void ScreenshotTour::start()
{
    if (m_folder.mkpath(QStringLiteral(".")))
        m_timer.start();
    else
        end(QStringLiteral("The folder \"%1\" cannot be made.").arg(m_folder.path()));
}

void ScreenshotTour::look()
{
    const Stop &stop = m_stops.at(m_current);
    if (!m_approached)
        m_approached = stop.approach();
    if (m_approached && stop.arrived()) {
        const QImage picture = m_window->grabWindow();
        if (isAtRest(picture))
            return photograph(picture);
    }
    if (++m_looks == mostLooks)
        end(QStringLiteral("The screen \"%1\" did not come.").arg(stop.name));
}

bool ScreenshotTour::isAtRest(const QImage &picture)
{
    m_alike = !picture.isNull() && picture == m_last ? m_alike + 1 : 0;
    m_last = picture;
    return m_alike >= looksAtRest;
}

void ScreenshotTour::photograph(const QImage &picture)
{
    const QString file = m_folder.filePath(m_stops.at(m_current).name + QStringLiteral(".png"));
    if (!picture.save(file))
        return end(QStringLiteral("The picture \"%1\" cannot be written.").arg(file));
    m_approached = false;
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

QQuickItem *ScreenshotTour::shown(const char *type) const
{
    return SceneSearch::ofType(m_window->contentItem(), type);
}

bool ScreenshotTour::isConnected(const char *type) const
{
    const QQuickItem *screen = shown(type);
    if (!screen)
        return false;
    const auto *overlay = screen->property("connectionScreen").value<QQuickItem *>();
    return overlay && !overlay->isVisible();
}

bool ScreenshotTour::areCoversThere(int atLeast) const
{
    const QStringList pictures = SceneSearch::loadedPictures(m_window->contentItem());
    return m_looks >= looksForCovers || pictures.filter(QStringLiteral("image://async/")).size() >= atLeast;
}

bool ScreenshotTour::isMatrixOpen() const
{
    const QQuickItem *matrix = shown("MatrixPopup");
    return matrix && matrix->y() < matrix->parentItem()->height();
}

bool ScreenshotTour::clickOn(const char *property, const QString &value) const
{
    const QQuickItem *item = SceneSearch::withText(m_window->contentItem(), property, value);
    return item && clickAt(item->mapToScene(item->boundingRect().center()));
}

bool ScreenshotTour::clickAt(const QPointF &place) const
{
    const QPointF global = m_window->mapToGlobal(place.toPoint());
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool down = type == QEvent::MouseButtonPress;
        QMouseEvent event(type, place, place, global, Qt::LeftButton, down ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(m_window, &event);
    }
    return true;
}
