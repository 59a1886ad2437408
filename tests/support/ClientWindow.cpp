// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/ClientWindow.h"

#include "plugin/TypeRegistry.h"
#include "support/SceneItems.h"
#include "support/Text.h"
#include "support/Waiting.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QtTest>

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace {

DeviceState smallDevice(const MusicServerSimulator &server)
{
    DeviceState state;
    OutputState terrace{3, "Terrace"_s, 40, false, 0, 0, 0, 0, 2};
    OutputState kitchen{7, "Kitchen"_s, 20, true, 0, 0, 0, 0, 9};
    OutputState bath{12, "Bath"_s, 60, false, 0, 0, 0, 0, 2};
    state.outputs = {terrace, kitchen, bath};
    SourceState music;
    music.index = 2;
    music.name = "Music"_s;
    music.hasPlayer = true;
    music.address = server.host();
    music.port = QString::number(server.port());
    music.volume = 70;
    SourceState radio;
    radio.index = 9;
    radio.name = "Radio"_s;
    radio.volume = 50;
    state.sources = {music, radio};
    return state;
}

} // namespace

ClientWindow::ClientWindow(const Catalogue &catalogue) : server(catalogue)
{
    registerHalvoraTypes();
    server.listen();
    device.setState(smallDevice(server));
    device.listen();
    QFont::insertSubstitution("Arial Unicode MS"_s, "DejaVu Sans"_s);
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.rootContext()->setContextProperty("devicePort"_s, device.port());
    view.rootContext()->setContextProperty("smallScreen"_s, false);
}

// The scene goes in mid-life, as when a host is closed, and before its peers.
ClientWindow::~ClientWindow()
{
    view.setSource({});
    QCoreApplication::processEvents();
}

bool ClientWindow::show(bool screensFirst, const QSize &size)
{
    view.rootContext()->setContextProperty("screensFirst"_s, screensFirst);
    view.resize(size);
    view.setSource(QUrl("qrc:/client.qml"_s));
    view.show();
    return view.status() == QQuickView::Ready && QTest::qWaitForWindowExposed(&view);
}

bool ClientWindow::showOutputs()
{
    return show() && Waiting::comes([this] { return showsText("Bath"_s) && !item("ConnectionOverlay"_s); });
}

bool ClientWindow::showPlayer()
{
    server.tracklist()->add({server.catalogue().track(0), server.catalogue().track(20)});
    server.playback()->play();
    const QString title = server.playback()->current().track.name;
    if (!showOutputs() || !Waiting::comes([&] { return !texts().filter(title).isEmpty(); }))
        return false;
    click({50, 65 + 45});
    return Waiting::comes([&] { return tab() == 1 && showsText(title); });
}

QObject *ClientWindow::scene(const char *name) const
{
    return view.rootObject() ? view.rootObject()->property(name).value<QObject *>() : nullptr;
}

void ClientWindow::selectTab(int index)
{
    scene("menu")->setProperty("currentIndex", index);
}

int ClientWindow::tab() const
{
    return scene("menu")->property("currentIndex").toInt();
}

int ClientWindow::playerButtonCalls() const
{
    return view.rootObject()->property("playerButtonCalls").toInt();
}

void ClientWindow::background()
{
    if (QObject *host = scene("hostDevice"))
        QMetaObject::invokeMethod(host, "requestDisconnect");
}

void ClientWindow::foreground()
{
    QMetaObject::invokeMethod(scene("hostDevice"), "requestConnect");
}

void ClientWindow::click(const QPoint &place)
{
    QTest::mouseClick(&view, Qt::LeftButton, {}, place);
}

void ClientWindow::press(const QPoint &place)
{
    QTest::mousePress(&view, Qt::LeftButton, {}, place);
}

void ClientWindow::moveTo(const QPoint &place)
{
    QTest::mouseMove(&view, place);
}

void ClientWindow::release(const QPoint &place)
{
    QTest::mouseRelease(&view, Qt::LeftButton, {}, place);
}

// Panels slide: what is clicked has to have come to rest.
bool ClientWindow::clickOn(const QString &text)
{
    constexpr int looksAtRest = 5;
    QPoint place(-1, -1);
    int alike = 0;
    const bool rests = QTest::qWaitFor([&] {
        const QQuickItem *label = itemWithText(text);
        const QPoint now = label ? label->mapToScene(label->boundingRect().center()).toPoint()
                                 : QPoint(-1, -1);
        alike = now == place && view.contentItem()->contains(now) ? alike + 1 : 0;
        place = now;
        return alike == looksAtRest;
    });
    if (rests)
        click(place);
    return rests;
}

void ClientWindow::type(const QString &text)
{
    for (const QChar character : text)
        QTest::keyClick(&view, character.toLatin1());
}

QList<QQuickItem *> ClientWindow::itemsOnShow() const
{
    return SceneItems::shown(view.rootObject());
}

QQuickItem *ClientWindow::itemWithText(const QString &text) const
{
    return SceneItems::label(view.rootObject(), text);
}

QStringList ClientWindow::texts() const
{
    return SceneItems::texts(view.rootObject());
}

QQuickItem *ClientWindow::item(const QString &type, int which) const
{
    const QList<QQuickItem *> items = itemsOnShow();
    for (QQuickItem *item : items) {
        if (QString::fromLatin1(item->metaObject()->className()).startsWith(type + "_QML"_s) && which-- == 0)
            return item;
    }
    return nullptr;
}

QImage ClientWindow::picture()
{
    return view.grabWindow();
}

QColor ClientWindow::pixel(const QPoint &place)
{
    return picture().pixelColor(place);
}

QStringList ClientWindow::commands() const
{
    QStringList commands;
    const QStringList messages = device.messages();
    for (const QString &message : messages) {
        if (message != "UI_ALIVE"_s && (commands.isEmpty() || commands.constLast() != message))
            commands.append(message);
    }
    return commands;
}

void ClientWindow::forgetCommands()
{
    device.clearReceived();
}

namespace {

bool areQueued(const QJsonArray &uris, const Tracklist &tracklist)
{
    const auto isQueued = [&](const QJsonValue &uri) {
        const auto &entries = tracklist.entries();
        return std::any_of(entries.begin(), entries.end(),
                           [&](const TracklistEntry &entry) { return entry.track.uri == uri.toString(); });
    };
    return std::all_of(uris.begin(), uris.end(), isQueued);
}

// What the client asks now and then, and after events.
bool isMirroring(const ReceivedRequest &request, const Tracklist &tracklist)
{
    static const QStringList polls{"core.get_uri_schemes"_s,
                                   "core.playback.get_state"_s,
                                   "core.playback.get_current_track"_s,
                                   "core.playback.get_time_position"_s,
                                   "core.tracklist.get_random"_s,
                                   "core.tracklist.get_repeat"_s,
                                   "core.tracklist.get_tl_tracks"_s,
                                   "core.playlists.as_list"_s};
    if (request.method == "core.library.get_images"_s)
        return areQueued(request.parameters.toObject().value("uris"_s).toArray(), tracklist);
    return polls.contains(request.method);
}

QString written(const ReceivedRequest &request)
{
    const QJsonDocument parameters(request.parameters.toObject());
    return request.method.mid(5) + QString::fromUtf8(parameters.toJson(QJsonDocument::Compact));
}

} // namespace

QStringList ClientWindow::requests() const
{
    QStringList requests;
    for (const ReceivedRequest &request : server.requests()) {
        if (!isMirroring(request, *server.tracklist()))
            requests.append(written(request));
    }
    return requests;
}

OutputsWindow::OutputsWindow()
{
    QVERIFY(showOutputs());
}

PlayerWindow::PlayerWindow(const Catalogue &catalogue) : ClientWindow(catalogue)
{
    QVERIFY(showPlayer());
}
