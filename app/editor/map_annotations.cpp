#include "app/editor/map_annotations.h"

#include "app/map/labelled_markers_overlay.h"
#include "app/map/polyline_overlay.h"
#include "core/track/waypoints.h"

#include <algorithm>

namespace trackloom {

MapAnnotations::MapAnnotations()
    : m_section(std::make_shared<PolylineOverlay>(QColor(255, 140, 0, 110), 11)),
      m_waypoints(std::make_shared<LabelledMarkersOverlay>(QColor(196, 40, 40))) {}

void MapAnnotations::showWaypoints(const GPXTrack* track) {
    std::vector<LabelledMarker> markers;
    if (track) {
        for (const auto& waypoint : waypointsOf(*track)) {
            markers.push_back({waypoint.coordinate, QString::fromStdString(waypoint.name)});
        }
    }
    m_waypoints->setMarkers(std::move(markers));
}

void MapAnnotations::showSection(const std::vector<EditorMapPoint>& points,
                                 std::optional<std::int64_t> selected, int revision) {
    const bool several =
        !points.empty() && std::ranges::any_of(points, [&](const EditorMapPoint& point) {
            return point.segment != points.front().segment;
        });
    std::optional<std::pair<int, std::int64_t>> shown;
    if (several && selected && *selected >= 0 &&
        *selected < static_cast<std::int64_t>(points.size())) {
        shown = std::pair(revision, points[static_cast<std::size_t>(*selected)].segment);
    }
    if (shown == m_shownSection) {
        return;
    }
    m_shownSection = shown;
    MapPolyline band;
    for (const auto& point : points) {
        if (shown && point.segment == shown->second) {
            band.points.push_back(point.coordinate);
        }
    }
    m_section->setPolylines(band.points.empty() ? std::vector<MapPolyline>{}
                                                : std::vector<MapPolyline>{band});
}

} // namespace trackloom
