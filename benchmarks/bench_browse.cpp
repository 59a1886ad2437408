// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Answers.h"
#include "Measurement.h"

#include "navigation/BrowseListView.h"
#include "navigation/BrowseNavigationController.h"
#include "player/HalvoraPlayer.h"
#include "player/Reclaimer.h"

#include <QGuiApplication>
#include <QQmlEngine>

// bench_browse ours|peer [ROWS]: from the text of a directory to the rows of the view, through player and
// controller, or through Qt's parser alone.

namespace {

double toFilledList(const QString &text, int rows)
{
    Answers::settle();
    const auto player = Answers::waitingPlayer();
    NavigationBar bar;
    BrowseNavigationController controller;
    controller.setNavigationBar(&bar);
    controller.setCurrentPlayer(player.get());
    auto *view = new BrowseListView; // the controller's, once it is its root
    controller.setRootView(view);
    controller.sendBrowse(view, QString());
    int filled = 0;
    QObject::connect(view, &BrowseListView::rowTypesChanged, [&] {
        QQmlListProperty<PlayerItem> list = view->allSortedItems();
        filled = list.count(&list);
    });
    const double elapsed = Measurement::timed([&] { player->socketMessageReceived(text); });
    if (filled != rows)
        qFatal("rows are missing");
    return elapsed;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QQmlEngine engine;
    Reclaimer::begin(&engine);
    const Measurement::Call call(argc, argv);
    const int rows = call.number(1, 10000);
    const QByteArray bytes = Answers::directory(rows);
    const QString text = QString::fromUtf8(bytes);
    const double seconds = Measurement::medianOfTurns(
        [&] { return call.isPeer() ? Answers::secondsOfParser(bytes) : toFilledList(text, rows); });
    call.report("browse-" + QByteArray::number(rows), seconds * 1e3, "ms");
    return 0;
}
