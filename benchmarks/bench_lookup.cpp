// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Answers.h"
#include "Measurement.h"

#include "navigation/BrowseListView.h"
#include "navigation/LibraryRows.h"
#include "player/Song.h"

#include <QGuiApplication>
#include <QJsonDocument>

// bench_lookup ours|peer: a lookup's answer of 30 rows in a view of 100,000, or in one of 1,000.

namespace {

constexpr int looked = 30;  // rows in one answer
constexpr int answers = 50; // in a turn

double applyAnswers(BrowseListView *view, const QJsonObject &answer)
{
    return Measurement::timed([&] {
        for (int i = 0; i < answers; ++i)
            view->updateItems(QStringLiteral("track"), answer);
    });
}

void checkDetails(BrowseListView *view, int rows)
{
    QQmlListProperty<PlayerItem> list = view->allSortedItems();
    if (list.count(&list) != rows)
        qFatal("rows are missing");
    for (int i = rows - looked; i < rows; ++i) {
        const auto *song = qobject_cast<Song *>(list.at(&list, i));
        if (!song || song->album().isEmpty())
            qFatal("the details have not arrived");
    }
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const Measurement::Call call(argc, argv);
    const int rows = call.isPeer() ? 1000 : 100000;
    const QJsonObject reply = QJsonDocument::fromJson(Answers::directory(rows)).object();
    const LibraryRows read = LibraryRows::fromDirectory(reply.value(QStringLiteral("result")));
    BrowseListView view;
    view.setRowTypes(read.types);
    view.setSections(read.sections);
    const QJsonObject answer = Answers::lookupOfLast(looked, rows);
    const double seconds = Measurement::medianOfTurns([&] { return applyAnswers(&view, answer); });
    checkDetails(&view, rows);
    call.report("lookup", seconds / answers * 1e6, "us");
    return 0;
}
