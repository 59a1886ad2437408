// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostOptions.h"
#include "HostScene.h"
#include "HostSettings.h"
#include "Password.h"
#include "PluginGate.h"
#include "ScreenshotTour.h"

#include "simulator/DemoHouse.h"
#include "simulator/SignalWatcher.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <cstdio>

namespace {

enum Status { Done = 0, Failed = 1, BadCall = 2 };

/// Tells the person at the terminal what is wrong, in one sentence.
int refuse(int status, const QString &sentence)
{
    std::fputs(
        qPrintable(QCoreApplication::applicationName() + QStringLiteral(": ") + sentence + QLatin1Char('\n')),
        stderr);
    return status;
}

/// The options are read before there is a display, so that --help needs none.
HostOptions readOptions(int &argc, char **argv)
{
    const QCoreApplication early(argc, argv);
    return HostOptions::read(QCoreApplication::arguments());
}

void takePictures(ScreenshotTour *tour)
{
    QObject::connect(
        tour, &ScreenshotTour::finished, tour,
        [](const QString &error) { QCoreApplication::exit(error.isEmpty() ? Done : refuse(Failed, error)); },
        Qt::QueuedConnection); // the tour may end before the event loop has begun
    tour->start();
}

int show(const HostOptions &options, DeviceAccess access)
{
    PluginGate gate;
    if (!gate.load())
        return refuse(Failed, gate.error());
    if (!installLanguage(options.language))
        return refuse(Failed,
                      QStringLiteral("The client library has no catalogue \"%1\".").arg(options.language));

    DemoHouse demo;
    if (options.demo) {
        if (options.mopidy)
            demo.setRealServer(options.mopidy->urlHost(), options.mopidy->port);
        if (!demo.start())
            return refuse(Failed, demo.errorText());
        access = {{demo.deviceHost(), demo.devicePort()}, QStringLiteral("demo"), QStringLiteral("demo")};
    }
    HostScene scene(gate);
    if (!scene.show(access, options.smallScreen))
        return refuse(Failed, scene.error());
    ScreenshotTour tour(scene.window(), options.screenshots);
    if (!options.screenshots.isEmpty())
        takePictures(&tour);
    return QGuiApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    nameApplication();
    const HostOptions options = readOptions(argc, argv);
    if (options.next == HostOptions::Next::Refuse)
        return refuse(BadCall, options.text);
    if (options.next == HostOptions::Next::Tell)
        return std::fputs(qPrintable(options.text), stdout) < 0 ? Failed : Done;

    DeviceAccess access;
    if (options.device) {
        QString error;
        const auto password = readPassword(options.passwordFile, options.user, &error);
        if (!password)
            return refuse(BadCall, error);
        access = {*options.device, options.user, *password};
    }

    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling); // the screens are laid out in fixed pixels
    const QGuiApplication application(argc, argv);
    const SignalWatcher signalWatcher;
    QObject::connect(&signalWatcher, &SignalWatcher::stopRequested, &application, &QCoreApplication::quit);
    ensureUniqueId();
    substituteFonts();
    return show(options, access);
}
