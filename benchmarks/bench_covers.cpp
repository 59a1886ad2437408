// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Frames.h"
#include "Measurement.h"

#include "images/AsyncImageProvider.h"
#include "images/ImageRequest.h"

#include <QAbstractEventDispatcher>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>

// bench_covers ours|peer PORT: 200 covers of 600 by 600 from the server on that port, twenty on show at a
// time, until the frame with the last of them; by our own pictures or by QML's. Tells also the longest
// stretch of processor time that the main thread spent without a look at its events.

namespace {

constexpr int covers = 200;
constexpr int atOnce = 20;

class Pictures final : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void request(const QString &uri, QQuickItem *item) { requestPicture(uri, item); }
    Q_INVOKABLE void fail(const QString &uri) { qFatal("no picture: %s", qPrintable(uri)); }
};

/// The longest time between two sleeps of the main thread's event loop.
class Stalls final
{
public:
    Stalls()
    {
        QAbstractEventDispatcher *dispatcher = QCoreApplication::eventDispatcher();
        QObject::connect(dispatcher, &QAbstractEventDispatcher::awake,
                         [this] { m_awake = Measurement::threadSeconds(); });
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock,
                         [this] { m_longest = qMax(m_longest, Measurement::threadSeconds() - m_awake); });
    }

    void begin() { m_longest = 0; }
    double longest() const { return m_longest; }

private:
    double m_awake = Measurement::threadSeconds();
    double m_longest = 0;
};

QStringList addresses(const QByteArray &port, int from)
{
    QStringList list;
    for (int i = from; i < from + atOnce; ++i)
        list << QStringLiteral("http://127.0.0.1:%1/covers/%2.jpg").arg(QString::fromLatin1(port)).arg(i);
    return list;
}

void showPage(QQuickView *view, const QStringList &addresses)
{
    QQuickItem *root = view->rootObject();
    root->setProperty("shown", 0);
    root->setProperty("addresses", addresses);
    while (root->property("shown").toInt() < atOnce)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    untilFrame(view);
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    const Measurement::Call call(argc, argv);
    QQuickView view;
    Pictures pictures;
    view.engine()->addImageProvider(QStringLiteral("async"), new AsyncImageProvider);
    view.rootContext()->setContextProperty(QStringLiteral("pictures"), &pictures);
    view.resize(500, 400);
    view.setSource(QUrl(QStringLiteral("qrc:/benchmarks/covers.qml")));
    view.rootObject()->setProperty("plain", call.isPeer());
    view.show();
    untilFrame(&view);
    showPage(&view, addresses(call.text(1), covers)); // the shaders and the threads
    Stalls stalls;
    stalls.begin();
    const double seconds = Measurement::timed(
        [&] {
            for (int from = 0; from < covers; from += atOnce)
                showPage(&view, addresses(call.text(1), from));
        },
        Measurement::wallSeconds);
    call.report("covers", seconds * 1e3, "ms");
    call.report("covers-stall", stalls.longest() * 1e3, "ms");
    return 0;
}

#include "bench_covers.moc"
