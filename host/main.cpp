// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostLog.h"
#include "HostOptions.h"
#include "HostScene.h"
#include "HostSettings.h"
#include "Password.h"
#include "PluginGate.h"
#include "ScreenshotTour.h"
#include "TourStops.h"
#include "WarningCount.h"

#include "simulator/DemoHouse.h"
#include "simulator/SignalWatcher.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <cstdio>
#include <memory>

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

/// The whole tour is for the demo alone: nobody else's house has just these rooms and this music.
std::vector<TourStop> stopsFor(const HostOptions &options, const SceneVisitor &visitor,
                               DeviceSimulator *device)
{
    if (!options.demo || options.mopidy)
        return TourStops::ofAnyHouse(visitor);
    return TourStops::ofTheDemo(visitor, [device] {
        device->faults().ignoreLogin = true;
        device->dropAll();
        return true;
    });
}

void begin(ScreenshotTour *tour)
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
    if (!scene.show(access, options.smallScreen, options.size))
        return refuse(Failed, scene.error());
    std::unique_ptr<ScreenshotTour> tour;
    if (!options.tour.isEmpty()) {
        tour = std::make_unique<ScreenshotTour>(
            scene.window(), options.tour, stopsFor(options, SceneVisitor(scene.window()), demo.device()));
        begin(tour.get());
    }
    return QGuiApplication::exec();
}

/// The same, and a tour on which anything warned has failed.
int showAndJudge(const HostOptions &options, const DeviceAccess &access)
{
    if (!options.tour.isEmpty())
        WarningCount::begin();
    const int status = show(options, access);
    const int warnings = WarningCount::soFar();
    if (status != Done || warnings == 0)
        return status;
    return refuse(Failed, QStringLiteral("The tour gave warnings: %1.").arg(warnings));
}

} // namespace

int main(int argc, char **argv)
{
    nameApplication();
    hideScreenNotes();
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
    return showAndJudge(options, access);
}
