// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "Endpoint.h"

#include <QQmlApplicationEngine>
#include <QSize>
#include <QString>

class PluginGate;
class QQuickWindow;

/// How to reach and enter the device.
struct DeviceAccess
{
    Endpoint address;
    QString user;
    QString password;
};

/**
 * The host's scene with its engine: the window, the tab bar and the client in it.
 *
 * Lives in the GUI thread and ends before the application does; with it goes the link to the device.
 */
class HostScene final
{
public:
    /// Registers the library's types in the engine. `gate` must be loaded.
    explicit HostScene(const PluginGate &gate);

    /// Shows the window and connects. An invalid size leaves the window its own. False when the scene does not load:
    /// error() is then one sentence.
    bool show(const DeviceAccess &access, bool smallScreen, const QSize &size = {});
    QString error() const { return m_error; }

    QQuickWindow *window() const; ///< owned by the engine; null before show()

private:
    QQmlApplicationEngine m_engine;
    QString m_error;
};
