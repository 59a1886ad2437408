// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/FuzzRun.h"

#include "link/WatchdogInterval.h"
#include "player/PlayerTiming.h"
#include "player/Reclaimer.h"
#include "support/ObjectHooks.h"
#include "support/Require.h"

#include <QGuiApplication>
#include <QNetworkProxy>
#include <QQmlEngine>
#include <QSet>

#include <sanitizer/lsan_interface.h>

#include <mutex>

namespace {

constexpr int never = 24 * 3600 * 1000; // milliseconds

// Threads of the client make objects too.
std::mutex objectsLock;
QSet<QObject *> &objects()
{
    static QSet<QObject *> set;
    return set;
}

void added(QObject *object)
{
    const std::lock_guard<std::mutex> guard(objectsLock);
    objects().insert(object);
}

void removed(QObject *object)
{
    const std::lock_guard<std::mutex> guard(objectsLock);
    objects().remove(object);
}

void silence(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg)
        fprintf(stderr, "%s\n", qPrintable(text));
}

// What Qt makes here it keeps to the end, in memory of its own that the search for leaks does not look through.
void makeApplication()
{
    const __lsan::ScopedDisabler keptByQt;
    qInstallMessageHandler(silence);
    qputenv("QT_QPA_PLATFORM", "minimal");
    qputenv("QT_NO_GLIB", "1");
    qputenv("HALVORA_LASTFM_ENDPOINT", "http://127.0.0.1:1");
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    new QGuiApplication(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("HalvoraFuzz"));
    // Neither a TCP socket nor a request can go through it, so that they fail before they look up a name.
    QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::FtpCachingProxy));
    PlayerTiming::current() = {never, never, never};
    WatchdogInterval::shortenForTests(never);
    Reclaimer::begin(new QQmlEngine(QCoreApplication::instance()));
}

bool isKeptForGood(const QObject *object)
{
    static const QSet<QByteArray> classes{"Output", "Source", "HalvoraPlayer", "PlayerItem",
                                          "Song",   "Album",  "PlaylistEntry", "SectionItems"};
    return classes.contains(object->metaObject()->className());
}

bool isQtsOwn(const QObject *object)
{
    static const QSet<QByteArray> ofTheClient{"QWebSocket", "QTcpSocket", "QTimer"};
    const QByteArray name = object->metaObject()->className();
    return name.startsWith('Q') && !ofTheClient.contains(name);
}

} // namespace

FuzzRun::FuzzRun()
{
    static const bool once = (makeApplication(), true);
    Q_UNUSED(once)
    settle();
    setObjectHooks(&added, &removed);
}

FuzzRun::~FuzzRun()
{
    settle();
    while (QObject *kept = findIf(isKeptForGood))
        delete kept;
    settle();
    setObjectHooks(nullptr, nullptr);
    for (const QObject *left : qAsConst(objects())) {
        if (left->parent() || isQtsOwn(left))
            continue;
        fprintf(stderr, "left behind: %s\n", left->metaObject()->className());
        REQUIRE(!"an object is left that nobody frees");
    }
    objects().clear();
}

void FuzzRun::settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QObject *FuzzRun::findIf(const std::function<bool(QObject *)> &wanted)
{
    const std::lock_guard<std::mutex> guard(objectsLock);
    for (QObject *object : qAsConst(objects())) {
        if (wanted(object))
            return object;
    }
    return nullptr;
}

QByteArrayList FuzzRun::lines(const uint8_t *data, size_t size, int most)
{
    const QByteArray text(reinterpret_cast<const char *>(data), int(size));
    return text.split('\n').mid(0, most);
}
