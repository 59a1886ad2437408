// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "WindowPlace.h"

#include "HostSettings.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWindow>

#include <algorithm>

namespace {

const QString positionKey = QStringLiteral("window/position");
const QString sizeKey = QStringLiteral("window/size");

} // namespace

WindowPlace::WindowPlace(QWindow *window, const QSize &size, Memory memory)
    : m_window(window), m_memory(memory), m_size(size.isValid() ? size : window->size())
{
    if (memory == Memory::Used)
        recall(size);
    m_size = m_size.expandedTo(window->minimumSize());
    for (const auto change :
         {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged})
        QObject::connect(
            window, change, &m_following, [this] { follow(); },
            Qt::QueuedConnection); // when all of a change has come
}

void WindowPlace::recall(const QSize &size)
{
    const QSettings settings;
    const QSize kept = settings.value(sizeKey).toSize();
    if (!size.isValid() && kept.isValid())
        m_size = kept;
    if (!settings.contains(positionKey))
        return;
    const QPoint position = settings.value(positionKey).toPoint();
    const QScreen *screen = QGuiApplication::screenAt(position + QPoint(m_size.width() / 2, 0));
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect place = onScreen({position, m_size}, screen->availableGeometry());
    m_position = place.topLeft();
    if (!size.isValid())
        m_size = place.size();
}

WindowPlace::~WindowPlace()
{
    if (m_memory == Memory::Unused)
        return;
    follow();
    QSettings settings;
    if (m_position)
        settings.setValue(positionKey, *m_position);
    settings.setValue(sizeKey, m_size);
    writeOut(settings);
}

void WindowPlace::show(bool fullScreen)
{
    if (fullScreen) {
        m_window->showFullScreen();
        m_window->setGeometry(m_window->screen()->geometry());
        return;
    }
    const auto position = m_position; // those of the way back are followed as well
    const QSize size = m_size;
    put(position, size);
    m_window->showNormal();
    put(position, size);
}

void WindowPlace::put(const std::optional<QPoint> &position, const QSize &size)
{
    m_window->resize(size);
    if (position)
        m_window->setFramePosition(*position);
}

void WindowPlace::follow()
{
    if (!m_window->isVisible() || m_window->windowStates() != Qt::WindowNoState)
        return;
    m_position = m_window->framePosition();
    m_size = m_window->size();
}

QRect WindowPlace::onScreen(const QRect &frame, const QRect &screen)
{
    QRect place(frame.topLeft(), frame.size().boundedTo(screen.size()));
    place.moveLeft(std::clamp(place.left(), screen.left(), screen.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), screen.top(), screen.bottom() + 1 - place.height()));
    return place;
}
