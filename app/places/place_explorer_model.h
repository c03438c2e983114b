#pragma once

// The view model of the place explorer ("Wann war ich hier?"). It is made for
// one scope of the history handed over by the timeline (its points, an optional
// interval, a title and the zone days are counted in) and lives until the next
// scope replaces it or the explorer closes.
//
// The user picks a place — a stored visit name, typed coordinates, a click on
// the map or an online search result — and a radius; the model lists the days
// with evidence there and bins the selected points for the heat map.
//
// Threads: selecting the points, the day search and the binning of the map's
// layers run on the model's `JobRunner`, each in its own lane, so a newer
// request cancels the older one and stale results never arrive. All state below
// changes on the main thread only. The online search is the only thing that
// sends anything off the machine, and only when asked for.

#include "app/places/online_place_search.h"
#include "app/shell/hand_over.h"
#include "app/shell/job_runner.h"
#include "app/shell/user_dialogs.h"
#include "core/places/heat_cells.h"
#include "core/places/place_analysis.h"

#include <QObject>
#include <QUuid>
#include <memory>
#include <optional>
#include <vector>

namespace trackloom {

/// A place offered for the query.
struct PlaceCandidate {
    /// Fresh for every candidate, so a list can tell rows apart.
    QUuid id;
    QString name;
    QString detail;
    PlaceCoordinate coordinate;
};

/// Cells of the map's point layers for one view, in unit-square units.
struct MapCells {
    std::vector<HeatCell> cells;
    double cellSize = 0;
    /// The render request the cells answer.
    std::uint64_t generation = 0;
};

/// The region and cell size a layer is binned with for a view showing
/// `visible` (unit square) on `viewWidth` screen points: cells of
/// `cellPoints` points (at least 1e-8 units), the region enlarged by two cells
/// on every side so that edge cells do not pop in while panning. Absent for a
/// view without width.
struct CellGrid {
    HeatRegion region;
    double cellSize = 0;
};
std::optional<CellGrid> cellGrid(HeatRegion visible, double viewWidth, double cellPoints);

class PlaceExplorerModel : public QObject {
    Q_OBJECT

  public:
    /// Screen points per heat cell.
    static constexpr double heatCellPoints = 22;
    /// Screen points per dot of the selected points.
    static constexpr double dotCellPoints = 4;
    static constexpr std::size_t savedPlaceLimit = 50;
    static constexpr std::size_t onlinePlaceLimit = 15;
    /// The points within this many metres of a chosen place are kept aside, so
    /// that trying the offered radii does not search the whole history again.
    static constexpr double nearbyRadius = 10000;

    /// `scope.zone` must not be null; `onlineSearch` may be (no online search).
    PlaceExplorerModel(PlaceScope scope, UserDialogs& dialogs, OnlinePlaceSearch* onlineSearch,
                       QObject* parent = nullptr);
    /// Closes: nothing started by the model reports back afterwards.
    ~PlaceExplorerModel() override;

    // Fixed at creation.
    const QUuid& id() const { return m_id; }
    const std::vector<TimelinePoint>& source() const { return *m_scope.points; }
    const std::optional<DateInterval>& interval() const { return m_scope.interval; }
    const QString& scopeTitle() const { return m_scope.title; }
    const date::time_zone& zone() const { return *m_scope.zone; }

    // Observable state.
    bool entireHistory() const { return m_entireHistory; }
    bool includeVisits() const { return m_includeVisits; }
    bool includeActivities() const { return m_includeActivities; }
    bool heatEnabled() const { return m_heatEnabled; }
    bool choosingLocation() const { return m_choosingLocation; }
    double radius() const { return m_radius; }
    const QString& query() const { return m_query; }
    const std::vector<PlaceCandidate>& candidates() const { return m_candidates; }
    const QString& queryMessage() const { return m_queryMessage; }
    bool searchBusy() const { return m_searchBusy; }
    bool preparing() const { return m_preparing; }
    bool finding() const { return m_finding; }
    const std::vector<HeatSample>& samples() const { return *m_samples; }
    const std::vector<TimelinePoint>& filtered() const { return *m_filtered; }
    const std::vector<PlaceDay>& days() const { return m_days; }
    const std::optional<PlaceCoordinate>& center() const { return m_center; }
    const QString& placeName() const { return m_placeName; }
    int revision() const { return m_revision; }
    int fitRequest() const { return m_fitRequest; }
    int focusRequest() const { return m_focusRequest; }
    const std::optional<QString>& error() const { return m_error; }
    /// Some background work (points, days or map layers) is still running.
    bool working() const { return m_jobs.isBusy(); }
    /// South-west and north-east corners of `filtered`, for fitting the map.
    const std::optional<std::pair<PlaceCoordinate, PlaceCoordinate>>& bounds() const {
        return m_bounds;
    }

    /// The heat cells last binned for the map (empty while switched off).
    const MapCells& heat() const { return m_heat; }
    /// The selected points thinned to one dot per few screen points.
    const MapCells& dots() const { return m_dots; }

    // Changes the screen makes; the first three reselect the points, the radius
    // searches the days again.
    void setEntireHistory(bool on);
    void setIncludeVisits(bool on);
    void setIncludeActivities(bool on);
    void setHeatEnabled(bool on);
    void setChoosingLocation(bool on);
    void setRadius(double metres);
    void setQuery(const QString& query);

    /// Reselects and projects the points in the background, then finds the days.
    void rebuild();
    /// Searches the days near `center` within `radius` in the background.
    void findDays();
    /// Takes a place, ends map picking and searches its days; `focus` moves the map there.
    void choose(const QString& name, PlaceCoordinate coordinate, bool focus);
    /// Offers the stored visits whose name contains the query, or takes typed coordinates.
    void searchSavedPlaces();
    /// Asks the online search for the query, or takes typed coordinates.
    void searchOnline();
    void cancelSearch();
    /// Cancels everything running; used before the model is replaced.
    void close();

    /// The map shows `visible` (unit square) on `viewWidth` points: bins both
    /// layers for it. Remembered, so that new points or switching the heat map
    /// on bin again by themselves.
    void setView(HeatRegion visible, double viewWidth);
    void requestHeat();
    void requestDots();

    /// "Mo., 02.06.2025" in the zone and the user's locale.
    QString dayText(const PlaceDay& day) const;
    /// The first and last evidence of the day ("09:15 – 24:00"), or the one time.
    QString evidence(const PlaceDay& day) const;

    /// The found days as CSV (day, first, last, count) in the zone, with a header.
    std::string daysCSV() const;
    /// Asks for a destination and writes `daysCSV()` there; false when cancelled
    /// or refused (the refusal is told to the user).
    bool exportDays();

  signals:
    void optionsChanged();
    void queryChanged();
    /// Candidates, the query message or the search's busy state changed.
    void candidatesChanged();
    /// `filtered`, `samples` or `preparing` changed (`revision` tells which run).
    void pointsChanged();
    /// `days` or `finding` changed.
    void daysChanged();
    /// `center`, `placeName` or `choosingLocation` changed.
    void placeChanged();
    void fitRequested();
    void focusRequested();
    void errorChanged();
    void heatChanged();
    void dotsChanged();

  private:
    enum Lane { prepareLane, dayLane, heatLane, dotLane };
    struct Prepared {
        std::shared_ptr<const std::vector<TimelinePoint>> filtered;
        std::shared_ptr<const std::vector<HeatSample>> samples;
        std::optional<std::pair<PlaceCoordinate, PlaceCoordinate>> bounds;
    };
    struct Nearby {
        PlaceCoordinate centre;
        double radius = 0;
        std::shared_ptr<const std::vector<TimelinePoint>> points;
    };
    struct DaySearch {
        std::vector<PlaceDay> days;
        Nearby nearby;
    };

    void setCandidates(std::vector<PlaceCandidate> candidates, const QString& message);
    void setError(std::optional<QString> error);
    void clearDays();
    void replacePoints(Prepared prepared);
    void renderCells(Lane lane, double cellPoints, MapCells& target,
                     void (PlaceExplorerModel::*changed)());

    UserDialogs& m_dialogs;
    OnlinePlaceSearch* m_online;
    QUuid m_id;
    PlaceScope m_scope;
    JobRunner m_jobs;

    bool m_entireHistory = true;
    bool m_includeVisits = true;
    bool m_includeActivities = false;
    bool m_heatEnabled = true;
    bool m_choosingLocation = false;
    double m_radius = 250;
    QString m_query;
    std::vector<PlaceCandidate> m_candidates;
    QString m_queryMessage;
    bool m_searchBusy = false;
    bool m_preparing = false;
    bool m_finding = false;
    std::shared_ptr<const std::vector<HeatSample>> m_samples;
    std::shared_ptr<const std::vector<TimelinePoint>> m_filtered;
    std::vector<PlaceDay> m_days;
    std::optional<PlaceCoordinate> m_center;
    QString m_placeName;
    int m_revision = 0;
    int m_fitRequest = 0;
    int m_focusRequest = 0;
    std::optional<QString> m_error;
    std::optional<std::pair<PlaceCoordinate, PlaceCoordinate>> m_bounds;

    std::optional<Nearby> m_nearby;
    std::uint64_t m_searchGeneration = 0;
    std::optional<std::pair<HeatRegion, double>> m_view;
    std::uint64_t m_renderGeneration = 0;
    MapCells m_heat;
    MapCells m_dots;
};

} // namespace trackloom
