// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Frames.h"
#include "Measurement.h"

#include "images/AsyncImageProvider.h"
#include "images/ImageRequest.h"

#include <QAbstractEventDispatcher>
#include <QFile>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>

// bench_covers ours|peer PORT: 200 covers of 600 by 600 from the server on that port, twenty on show at a
// time, until the frame with the last of them; by our own pictures or by QML's. Tells also the longest stretch
// for which the main thread did not look at its events: by the clock on the wall; without what it stood ready for
// and had no core, which is the machine's doing; and the processor time alone, which leaves out waiting for a lock or
// for the drawing thread as well.

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

/// Seconds on three clocks.
struct Clocks
{
    double wall = 0;
    double without = 0; ///< the wall's, without those for which the thread stood ready and had no core
    double processor = 0;
};

/// The longest times between two sleeps of the main thread's event loop, each clock's for itself.
class Stalls final
{
public:
    Stalls()
    {
        if (!m_schedule.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            qFatal("the kernel does not tell how long its threads wait");
        m_awake = now();
        QAbstractEventDispatcher *dispatcher = QCoreApplication::eventDispatcher();
        QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, [this] { m_awake = now(); });
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, [this] {
            const Clocks here = now();
            m_longest.wall = qMax(m_longest.wall, here.wall - m_awake.wall);
            m_longest.without = qMax(m_longest.without, here.without - m_awake.without);
            m_longest.processor = qMax(m_longest.processor, here.processor - m_awake.processor);
        });
    }

    void begin() { m_longest = {}; }
    const Clocks &longest() const { return m_longest; }

private:
    Clocks now()
    {
        const double wall = Measurement::wallSeconds();
        return {wall, wall - secondsWithoutCore(), Measurement::threadSeconds()};
    }

    // The second of three numbers, in nanoseconds.
    double secondsWithoutCore()
    {
        m_schedule.seek(0);
        const QList<QByteArray> numbers = m_schedule.read(100).split(' ');
        if (numbers.size() < 3)
            qFatal("the kernel tells something else of its threads");
        return numbers.at(1).toDouble() / 1e9;
    }

    QFile m_schedule{QStringLiteral("/proc/thread-self/schedstat")}; // of the thread that opens it
    Clocks m_awake;
    Clocks m_longest;
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
    call.report("covers-stall", stalls.longest().without * 1e3, "ms");
    call.report("covers-stall-wall", stalls.longest().wall * 1e3, "ms");
    call.report("covers-stall-processor", stalls.longest().processor * 1e3, "ms");
    return 0;
}

#include "bench_covers.moc"
