#pragma once

// What the editor's map shows beside the track itself: the file's waypoints
// with their names, and, when the track has several sections, the section of
// the selected point underlaid in a wide band (the section that a split, a
// merge or the section export works on).

#include "app/editor/editor_model.h"

#include <memory>
#include <optional>

namespace trackloom {

class LabelledMarkersOverlay;
class PolylineOverlay;

class MapAnnotations {
  public:
    MapAnnotations();

    /// To be drawn beneath the track's lines.
    const std::shared_ptr<PolylineOverlay>& sectionBand() const { return m_section; }
    /// To be drawn above the lines, beneath the selection.
    const std::shared_ptr<LabelledMarkersOverlay>& waypoints() const { return m_waypoints; }

    void showWaypoints(const GPXTrack* track);
    /// Underlays the section of `selected` among `points` (displayed indices),
    /// for the map revision `revision`.
    void showSection(const std::vector<EditorMapPoint>& points,
                     std::optional<std::int64_t> selected, int revision);

  private:
    std::shared_ptr<PolylineOverlay> m_section;
    std::shared_ptr<LabelledMarkersOverlay> m_waypoints;
    // What the band shows, so that selecting along one section does not
    // prepare its line again.
    std::optional<std::pair<int, std::int64_t>> m_shownSection;
};

} // namespace trackloom
