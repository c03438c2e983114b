#pragma once

// The timeline's map: the shown paths as one line per section, visits as
// labelled markers, activity endpoints when they are shown, and the selection.
// Clicks, Ctrl-clicks, Shift-drags and drags of selected points go to the model;
// what the map shows always comes back from it.
//
// The lines of a range of many days take a moment to prepare, so that runs on
// a thread of the map; the newest preparation replaces the shown one.

#include "app/map/web_mercator.h"

#include <QThreadPool>
#include <QWidget>
#include <memory>
#include <unordered_map>
#include <vector>

namespace trackloom {

class MapWidget;
class PointsOverlay;
class PolylineOverlay;
class RubberBandOverlay;
class TileSource;
class TimelineModel;
class LabelledMarkersOverlay;

class TimelineMap : public QWidget {
    Q_OBJECT

  public:
    TimelineMap(TimelineModel& model, TileSource* tiles, QWidget* parent = nullptr);
    ~TimelineMap() override;

    MapWidget* map() const { return m_map; }
    bool isPreparing() const { return m_requested != m_installed; }
    /// Pans, at the same zoom, to the selection when none of it is in view.
    void revealSelection();

    /// The overlays of one list of shown points.
    struct Overlays {
        std::shared_ptr<PolylineOverlay> lines;
        std::shared_ptr<PointsOverlay> dots;
        std::shared_ptr<PointsOverlay> activities;
        std::shared_ptr<LabelledMarkersOverlay> visits;
        // Every shown point, for hits and the rubber band; indices are those of `ids`.
        std::shared_ptr<PointsOverlay> targets;
        std::vector<std::int64_t> ids;
        std::vector<MapPoint> projected;
        std::unordered_map<std::int64_t, std::size_t> indexOf;
        bool showDots = false;
    };

  private:
    void showPoints();
    void install(Overlays overlays);
    void showSelection();
    void fit();
    void picked(std::optional<std::int64_t> index, Coordinate where, bool toggle);
    void spanned(MapRect region, bool toggle);

    TimelineModel& m_model;
    MapWidget* m_map;
    Overlays m_overlays;
    std::shared_ptr<PointsOverlay> m_selection;
    std::shared_ptr<RubberBandOverlay> m_band;
    // The ids of the selection's markers, in their order.
    std::vector<std::int64_t> m_selectedIDs;
    int m_shownRevision = -1;
    std::uint64_t m_requested = 0;
    std::uint64_t m_installed = 0;
    QThreadPool m_pool;
};

} // namespace trackloom
