// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Answers.h"
#include "Frames.h"
#include "Measurement.h"

#include "images/AsyncImageProvider.h"
#include "images/ImageDownloader.h"
#include "navigation/BrowseListView.h"
#include "navigation/LibraryRows.h"
#include "plugin/TypeRegistry.h"
#include "screens/Theme.h"

#include <QFont>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QQmlContext>
#include <QQmlEngine>

#include <atomic>

// bench_scroll ours|peer [alike|all-lines]: 10,000 rows moved by 25 pixels a frame, in the client's list and in a bare one,
// over the same songs and pictures: for each frame what the main thread works, and how long the drawing
// thread takes to show it.

namespace {

constexpr int rows = 10000;
constexpr int frames = 240;
constexpr int step = 25;    // pixels a frame
constexpr int pictures = 8; // that the rows share

QString pictureOf(int row)
{
    return QStringLiteral("http://pictures.invalid/%1.png").arg(row % pictures);
}

void keepPictures()
{
    for (int i = 0; i < pictures; ++i) {
        QImage image(64, 64, QImage::Format_RGB32);
        image.fill(QColor::fromHsv(360 * i / pictures, 200, 200));
        ImageDownloader::instance()->addToCache(pictureOf(i), image);
    }
}

LibraryRows songs()
{
    const QJsonObject reply = QJsonDocument::fromJson(Answers::directory(rows)).object();
    const LibraryRows read = LibraryRows::fromDirectory(reply.value(QStringLiteral("result")));
    const SectionItems *tracks = read.sections.value(QStringLiteral("track"));
    for (int i = 0; i < rows; ++i)
        tracks->items.at(i)->images->insert(64, pictureOf(i));
    return read;
}

// The details, as after the answers to its lookups.
void complete(BrowseListView *view)
{
    view->updateItems(QStringLiteral("track"), Answers::lookupOfLast(rows, rows));
}

QQuickItem *listIn(QQuickItem *root)
{
    if (root->inherits("QQuickListView"))
        return root;
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *list = listIn(child))
            return list;
    }
    return nullptr;
}

/// The time of the drawing thread from the taking over of a frame to its show, for the last frame.
class Drawing final
{
public:
    explicit Drawing(QQuickView *view)
    {
        QObject::connect(
            view, &QQuickWindow::beforeSynchronizing, view, [this] { m_began = Measurement::wallSeconds(); },
            Qt::DirectConnection);
        QObject::connect(
            view, &QQuickWindow::frameSwapped, view,
            [this] { m_seconds = Measurement::wallSeconds() - m_began; }, Qt::DirectConnection);
    }

    double seconds() const { return m_seconds; }

private:
    double m_began = 0;
    std::atomic<double> m_seconds{0};
};

// Between the two parts Qt waits for more to come; that is nobody's work.
double secondsOfFrame(QQuickView *view)
{
    QQuickItem *list = listIn(view->rootObject());
    if (!list || list->property("count").toInt() != rows)
        qFatal("rows are missing");
    const Drawing drawing(view);
    for (int i = 0; i < 20; ++i) // what is on show at first
        untilFrame(view);
    QVector<double> times;
    for (int i = 1; i <= frames; ++i) {
        const double moving = Measurement::timed([&] {
            list->setProperty("contentY", i * step);
            untilFrame(view);
        });
        times.append(moving + drawing.seconds());
    }
    return Measurement::median(times);
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const Measurement::Call call(argc, argv);
    const QByteArray look = call.text(1); // of the peer
    registerHalvoraTypes();
    QFont::insertSubstitution(QStringLiteral("Arial Unicode MS"), QStringLiteral("DejaVu Sans"));
    keepPictures();
    Theme theme;
    theme.setImgSuffix(QStringLiteral("_0"));
    const LibraryRows read = songs();
    BrowseListView holder; // the rows' details are the view's business, also for the peer
    holder.setRowTypes(read.types);
    holder.setSections(read.sections);
    complete(&holder);
    QQuickView view;
    view.setColor(Qt::black);
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.resize(450, 640);
    view.engine()->addImageProvider(QStringLiteral("async"), new AsyncImageProvider);
    view.rootContext()->setContextProperty(QStringLiteral("currentTheme"), &theme);
    if (call.isPeer()) {
        view.rootContext()->setContextProperty(QStringLiteral("holder"), &holder);
        view.rootContext()->setContextProperty(QStringLiteral("drawnAlike"), !look.isEmpty());
        view.rootContext()->setContextProperty(QStringLiteral("allLines"), look == "all-lines");
        view.setSource(QUrl(QStringLiteral("qrc:/benchmarks/scroll.qml")));
    } else {
        view.setSource(QUrl(QStringLiteral("qrc:/Qml/BrowseList.qml")));
        auto *list = qobject_cast<BrowseListView *>(view.rootObject());
        list->setRowTypes(read.types);
        list->setSections(read.sections);
    }
    view.show();
    call.report(look.isEmpty() ? QByteArray("scroll") : "scroll-" + look, secondsOfFrame(&view) * 1e3, "ms");
    return 0;
}
