// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "TourStops.h"

#include <QCoreApplication>

namespace {

constexpr QPointF leftwards(-90, 0);
constexpr QPointF upwards(0, -90);

/// Words for what a visitor does.
class Steps final
{
public:
    explicit Steps(const SceneVisitor &visitor) : m_visitor(visitor) { }

    TourStep text(const char *text) const { return tap("text", QString::fromUtf8(text)); }
    /// A word of the client that it translates.
    TourStep word(const char *word) const
    {
        return tap("text", QCoreApplication::translate("DynamicTranslator", word));
    }
    TourStep picture(const char *name) const
    {
        return tap("source", QStringLiteral("/%1.png").arg(QLatin1String(name)));
    }
    TourStep nth(const char *type, int place) const
    {
        return [=, visitor = m_visitor] { return visitor.tapNth(type, place); };
    }
    TourStep drag(const char *type, int place, const QPointF &by) const
    {
        return [=, visitor = m_visitor] { return visitor.dragNth(type, place, by); };
    }
    TourStep keys(const char *text) const
    {
        return [visitor = m_visitor, text = QString::fromUtf8(text)] { return visitor.type(text); };
    }

    TourStep close() const { return picture("eqclose"); }
    TourStep ok() const { return nth("DialogButton", 0); }
    TourStep cancel() const { return nth("DialogButton", 1); }
    TourStep field() const { return nth("TextField", 0); }
    TourStep matrixOfThePlayer() const { return text("Output"); }

private:
    TourStep tap(const char *property, const QString &value) const
    {
        return [=, visitor = m_visitor] { return visitor.tap(property, value); };
    }

    SceneVisitor m_visitor;
};

QString named(const char *name)
{
    return QLatin1String(name);
}

std::vector<TourStop> ofThePlayer(const Steps &to)
{
    return {
        {named("05-player-matrix"), {to.matrixOfThePlayer()}, "MatrixPopup", 0},
        {named("06-queue"),
         {to.matrixOfThePlayer(), to.picture("next"), to.picture("queue")},
         "QueueView",
         5},
        {named("07-queue-swiped"), {to.drag("SongCell", 1, leftwards)}, "QueueView", 5},
        {named("08-save-queue"),
         {to.picture("save"), to.field(), to.keys("Sunday Breakfast")},
         "PlaylistSaveDialog",
         0},
        {named("09-equaliser"), {to.cancel(), to.close(), to.picture("equilizer")}, "Equalizer", 0},
    };
}

std::vector<TourStop> ofThePlaylists(const Steps &to)
{
    return {
        {named("10-playlists"), {to.close(), to.picture("playlists")}, "PlaylistCell", 0},
        {named("11-playlist-tracks"), {to.nth("PlaylistCell", 0)}, "BrowseList", 5},
        {named("12-playlist-menu"), {to.text("Playlists"), to.nth("MenuButton", 0)}, "PlaylistMoreMenu", 0},
        {named("13-rename-playlist"),
         {to.word("Rename"), to.field(), to.keys("Early Coffee")},
         "PlaylistSaveDialog",
         0},
        {named("14-delete-playlist"),
         {to.cancel(), to.nth("MenuButton", 2), to.word("Delete")},
         "PlaylistDeleteDialog",
         0},
        {named("15-preset-slots"),
         {to.ok(), to.nth("MenuButton", 0), to.word("Associate")},
         "PlaylistEntriesView",
         0},
        {named("16-new-playlist"),
         {to.text("Playlists"), to.text("Add"), to.field(), to.keys("Road Trip")},
         "PlaylistSaveDialog",
         0},
    };
}

std::vector<TourStop> ofTheLibrary(const Steps &to)
{
    return {
        {named("17-library"), {to.cancel(), to.text("Close"), to.picture("library")}, "GenericCell", 0},
        {named("18-albums"), {to.text("Local media"), to.text("Albums")}, "BrowseList", 5},
        {named("19-album"), {to.nth("SongCell", 1)}, "BrowseList", 5},
        {named("20-item-menu"), {to.nth("MenuButton", 0)}, "MoreMenu", 1},
        {named("21-playlist-chooser"), {to.word("Add to Playlist")}, "PlaylistChooser", 0},
        {named("22-search"),
         {to.close(), to.close(), to.text("Close"), to.picture("library_search"), to.field(),
          to.keys("north\n")},
         "SearchRootView",
         3},
        {named("23-search-filters"), {to.text("Show filters")}, "FilterPanel", 0},
        // A list that has been opened so fetches its covers when it has been moved.
        {named("24-search-more"),
         {to.text("Select"), to.text("Show more..."), to.drag("SongCell", 3, upwards)},
         "BrowseList",
         5},
    };
}

std::vector<TourStop> ofOtherSources(const Steps &to, const TourStep &loseDevice)
{
    return {
        {named("25-airplay"),
         {to.text("Close"), to.matrixOfThePlayer(), to.text("Master Bedroom")},
         "PlayerView",
         1},
        {named("26-source-without-player"), {to.matrixOfThePlayer(), to.text("Terrace")}, "SourceImgView", 0},
        {named("27-connection"), {loseDevice}, "ConnectionOverlay", 0},
    };
}

} // namespace

std::vector<TourStop> TourStops::ofAnyHouse(const SceneVisitor &visitor)
{
    const Steps to(visitor);
    return {
        {named("01-outputs"), {}, "OutputsView", 2},
        {named("02-by-source"), {to.text("Show by source")}, "SourceBand", 0},
        {named("03-matrix"), {to.text("Show all"), to.picture("matrix")}, "MatrixPopup", 0},
        {named("04-player"), {to.picture("matrix"), to.nth("CoverImgS", 0)}, "PlayerView", 1},
    };
}

std::vector<TourStop> TourStops::ofTheDemo(const SceneVisitor &visitor, const TourStep &loseDevice)
{
    const Steps to(visitor);
    std::vector<TourStop> stops = ofAnyHouse(visitor);
    for (const auto &more :
         {ofThePlayer(to), ofThePlaylists(to), ofTheLibrary(to), ofOtherSources(to, loseDevice)})
        stops.insert(stops.end(), more.begin(), more.end());
    return stops;
}
