// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostController.h"
#include "HostLanguages.h"
#include "HostLog.h"
#include "HostOptions.h"
#include "HostPreferences.h"
#include "HostScene.h"
#include "HostSettings.h"
#include "KeychainStore.h"
#include "Password.h"
#include "PluginGate.h"
#include "ScreenshotTour.h"
#include "TourStops.h"
#include "WarningCount.h"

#include "simulator/DemoHouse.h"
#include "simulator/SignalWatcher.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <iterator>
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

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(main)
};

/// What the person who started the program wants of it.
struct Call
{
    HostOptions options;
    DeviceAccess access;
    std::optional<int> end; ///< the status, when all is done with that
};

/// Qt aborts where there is none.
bool hasDisplay()
{
    const char *const signs[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(std::begin(signs), std::end(signs),
                       [](const char *sign) { return !qEnvironmentVariableIsEmpty(sign); });
}

/// The options are read before there is a display, so that --help needs none; and the password with them.
Call readCall(int &argc, char **argv)
{
    const QCoreApplication early(argc, argv);
    speakAsHost(systemLanguage());
    setDamagedSettingsAside(); // ahead of any other reader, as Qt complains of a file to the first alone
    speakAsHost(chosenLanguage());
    Call call{HostOptions::read(QCoreApplication::arguments()), {}, {}};
    const HostOptions &options = call.options;
    if (options.next == HostOptions::Next::Refuse)
        call.end = refuse(BadCall, options.text);
    if (options.next == HostOptions::Next::Tell)
        call.end = std::fputs(qPrintable(options.text), stdout) < 0 ? Failed : Done;
    if (!call.end && !hasDisplay())
        call.end = refuse(Failed, Text::tr("There is no display to open a window on."));
    if (call.end || !options.device)
        return call;
    QString error;
    const auto password = readPassword(options.passwordFile, options.user, &error);
    if (password)
        call.access = {*options.device, options.user, *password};
    else
        call.end = refuse(BadCall, error);
    return call;
}

/// Gives the handlers that are in place to the first signal alone: a second one ends the process at once, however busy
/// the first keeps it.
void letSecondSignalEnd()
{
    for (const int number : {SIGINT, SIGTERM}) {
        struct sigaction action = {};
        sigaction(number, nullptr, &action);
        action.sa_flags |= int(SA_RESETHAND);
        sigaction(number, &action, nullptr);
    }
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

/// The simulated house for whoever asks first; it is there from then on.
HostController::Demo starterOf(DemoHouse *house, const HostOptions &options)
{
    return [house, mopidy = options.mopidy, started = false](DeviceAccess *access, QString *error) mutable {
        if (!started && mopidy)
            house->setRealServer(mopidy->urlHost(), mopidy->port);
        started = started || house->start();
        *error = house->errorText();
        *access = {
            {house->deviceHost(), house->devicePort()}, QStringLiteral("demo"), QStringLiteral("demo")};
        return started;
    };
}

/// What the command line asks for, else the device that was chosen last. One sentence when it cannot be had.
QString choose(const HostOptions &options, const DeviceAccess &access, HostController *controller)
{
    if (options.demo)
        return controller->showDemo();
    if (options.device)
        controller->show(access.address.host, access);
    else
        controller->showLast();
    return {};
}

int show(const HostOptions &options, const DeviceAccess &access)
{
    PluginGate gate;
    if (!gate.load())
        return refuse(Failed, gate.error());
    HostPreferences preferences;
    const QString language = options.language.isEmpty() ? preferences.language() : options.language;
    if (!preferences.speak(language))
        return refuse(Failed, Text::tr("The client library has no catalogue \"%1\".").arg(language));
    if (options.fullScreen)
        preferences.fillScreen();

    DemoHouse demo;
    HostController controller(starterOf(&demo, options), KeychainStore::ofSession());
    const QString error = choose(options, access, &controller);
    if (!error.isEmpty())
        return refuse(Failed, error);
    const bool tours = !options.tour.isEmpty();
    HostScene scene(gate, &controller, &preferences);
    if (!scene.show(options.smallScreen, options.size,
                    tours ? WindowPlace::Memory::Unused : WindowPlace::Memory::Used))
        return refuse(Failed, scene.error());
    std::unique_ptr<ScreenshotTour> tour;
    if (tours) {
        tour = std::make_unique<ScreenshotTour>(
            scene.window(), options.tour, stopsFor(options, SceneVisitor(scene.window()), demo.device()));
        begin(tour.get());
    }
    const int status = QGuiApplication::exec();
    return scene.error().isEmpty() ? status : refuse(Failed, scene.error());
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
    return refuse(Failed, Text::tr("The tour gave warnings: %1.").arg(warnings));
}

} // namespace

int main(int argc, char **argv)
{
    nameApplication();
    hideScreenNotes();
    const Call call = readCall(argc, argv);
    if (call.end)
        return *call.end;

    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling); // the screens are laid out in fixed pixels
    const QGuiApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("halvora-host")); // whose icon a Wayland desktop shows
    const SignalWatcher signalWatcher;
    QObject::connect(&signalWatcher, &SignalWatcher::stopRequested, &application, &QCoreApplication::quit);
    letSecondSignalEnd();
    speakAsHost(chosenLanguage());
    ensureUniqueId();
    substituteFonts();
    return showAndJudge(call.options, call.access);
}
