// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Measurement.h"

#include "navigation/BrowseListView.h"
#include "navigation/LibraryRows.h"
#include "player/Song.h"
#include "simulator/Catalogue.h"
#include "simulator/MopidyModels.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <malloc.h>

// Rows of the library: what a directory costs, and what a lookup's answer costs in a short and in a long one.

namespace {

constexpr int looked = 30; // rows in one lookup

double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

QByteArray directory(const Catalogue &catalogue)
{
    QJsonArray rows;
    for (int i = 0; i < catalogue.trackCount(); ++i) {
        const CatalogueTrack track = catalogue.track(i);
        rows.append(QJsonObject{{QStringLiteral("__model__"), QStringLiteral("Ref")},
                                {QStringLiteral("uri"), track.uri},
                                {QStringLiteral("name"), track.name},
                                {QStringLiteral("type"), QStringLiteral("track")}});
    }
    return QJsonDocument(rows).toJson(QJsonDocument::Compact);
}

// The answer to a lookup of the last rows.
QJsonObject lookupAnswer(const Catalogue &catalogue)
{
    QJsonObject answer;
    for (int i = catalogue.trackCount() - looked; i < catalogue.trackCount(); ++i) {
        const CatalogueTrack track = catalogue.track(i);
        answer.insert(track.uri, QJsonArray{MopidyModels::track(track)});
    }
    return answer;
}

void fill(BrowseListView *view, const QJsonValue &rows)
{
    const LibraryRows read = LibraryRows::fromDirectory(rows);
    view->setRowTypes(read.types);
    view->setSections(read.sections);
    QQmlListProperty<PlayerItem> list = view->allSortedItems();
    if (list.count(&list) != rows.toArray().size())
        qFatal("rows are missing");
}

// Nobody frees what a list has dropped; here it would make each turn slower than the one before.
void empty(BrowseListView *view)
{
    QQmlListProperty<PlayerItem> list = view->allSortedItems();
    for (int i = 0; i < list.count(&list); ++i)
        delete list.at(&list, i);
}

double applyRows(const QJsonDocument &document)
{
    BrowseListView view;
    const QJsonArray rows = document.array();
    QElapsedTimer timer;
    timer.start();
    fill(&view, rows);
    const double elapsed = milliseconds(timer);
    empty(&view);
    return elapsed;
}

double parse(const QByteArray &text)
{
    QElapsedTimer timer;
    timer.start();
    const QJsonDocument document = QJsonDocument::fromJson(text);
    const double elapsed = milliseconds(timer);
    if (!document.isArray())
        qFatal("the parser has refused the text");
    return elapsed;
}

bool measureDirectory()
{
    const QByteArray text = directory(Catalogue(1, 50000));
    const QJsonDocument document = QJsonDocument::fromJson(text);
    return Measurement::compare(
        "directory of 50000 rows", [&] { return applyRows(document); }, [&] { return parse(text); }, 1.5);
}

// A list with its rows, and the answer that completes the last ones.
class Shelf final
{
public:
    explicit Shelf(int rows) : m_catalogue(1, rows), m_answer(lookupAnswer(m_catalogue))
    {
        fill(&m_view, QJsonDocument::fromJson(directory(m_catalogue)).array());
    }

    double applyLookups()
    {
        constexpr int times = 200;
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < times; ++i)
            m_view.updateItems(QStringLiteral("track"), m_answer);
        const double elapsed = milliseconds(timer);
        QQmlListProperty<PlayerItem> list = m_view.allSortedItems();
        const auto *last = qobject_cast<Song *>(list.at(&list, list.count(&list) - 1));
        if (!last || last->album().isEmpty())
            qFatal("the details have not arrived");
        return elapsed;
    }

private:
    Catalogue m_catalogue;
    QJsonObject m_answer;
    BrowseListView m_view;
};

bool measureLookup()
{
    Shelf large(100000);
    Shelf small(1000);
    return Measurement::compare(
        "200 lookups in 100000 and 1000 rows", [&] { return large.applyLookups(); },
        [&] { return small.applyLookups(); }, 1.5);
}

bool measureMemory()
{
    constexpr int rows = 50000;
    constexpr double most = 1024;
    const QJsonArray answer = QJsonDocument::fromJson(directory(Catalogue(1, rows))).array();
    BrowseListView view;
    const size_t before = mallinfo2().uordblks;
    fill(&view, answer);
    const double each = double(mallinfo2().uordblks - before) / rows;
    std::printf("%-34s %9.0f bytes of memory a row   at most %.0f   %s\n", "directory of 50000 rows", each, most,
                each <= most ? "met" : "NOT MET");
    return each <= most;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    bool met = measureMemory();
    met = measureDirectory() && met;
    met = measureLookup() && met;
    return met ? 0 : 1;
}
