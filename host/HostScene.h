// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "WindowPlace.h"

#include <QCoreApplication>
#include <QQmlApplicationEngine>
#include <QSize>
#include <QString>

#include <memory>

class HostController;
class HostPreferences;
class PluginGate;
class QQuickWindow;

/**
 * The host's scene with its engine: the window, the host's pages, the tab bar and the client in it.
 *
 * Lives in the GUI thread and ends before the application does; with it goes the link to the device.
 */
class HostScene final
{
    Q_DECLARE_TR_FUNCTIONS(HostScene)

public:
    /// Registers the library's types in the engine. `gate` must be loaded; the other two outlive this object.
    HostScene(const PluginGate &gate, HostController *controller, HostPreferences *preferences);
    ~HostScene();
    Q_DISABLE_COPY(HostScene)

    /// Shows the window, and in it what the controller says. A valid size is the window's, whatever size is remembered.
    /// False when the scene does not load: error() is then one sentence. So it is when the window turns out later to
    /// be one that cannot be drawn; the event loop then ends with status 1.
    bool show(bool smallScreen, const QSize &size = {},
              WindowPlace::Memory place = WindowPlace::Memory::Unused);
    QString error() const { return m_error; }

    QQuickWindow *window() const; ///< owned by the engine; null before show()

private:
    void fail(const QString &reason);

    HostController *m_controller;
    HostPreferences *m_preferences;
    QQmlApplicationEngine m_engine;
    std::unique_ptr<WindowPlace> m_place; // ends before the window
    QString m_error;
};
