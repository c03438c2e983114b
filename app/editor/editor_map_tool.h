#pragma once

// What a click on the editor's map does: select a point, drag one, or insert
// new points after an anchor point. While inserting, the clicked points wait
// here until they are inserted in one step or dropped.

#include "core/track/gpx_track.h"

#include <QObject>
#include <optional>
#include <vector>

namespace trackloom {

class EditorModel;

enum class MapTool { select, move, insert };

class EditorMapTool : public QObject {
    Q_OBJECT

  public:
    /// Selections, refusals and the insertion go through `model`.
    explicit EditorMapTool(EditorModel& model) : m_model(model) {}

    MapTool tool() const { return m_tool; }
    const std::vector<Coordinate>& pendingPoints() const { return m_pendingPoints; }
    /// The displayed point after which the pending points go.
    std::optional<std::int64_t> insertAnchor() const { return m_insertAnchor; }

    /// Switches the tool; pending points are dropped.
    void setTool(MapTool tool);
    /// A click on the map outside the line: selects in the select and move
    /// tools (`hit` is the displayed point under the pointer), adds a pending
    /// point while inserting.
    void mapClicked(std::optional<std::int64_t> hit, Coordinate where);
    /// A click on the leg that starts at displayed point `legStart` while inserting.
    void insertOnLine(std::int64_t legStart, Coordinate where);
    /// Switches to inserting, after the selected point when it takes new points.
    void startInserting();
    /// Inserts the pending points after the anchor (one undo step).
    void finishInserting();
    void cancelInserting();
    /// Back to selecting with nothing pending, as for a newly opened track.
    void reset();

  signals:
    void toolChanged();
    /// The pending points or the anchor changed.
    void pendingPointsChanged();

  private:
    void setPending(std::vector<Coordinate> points, std::optional<std::int64_t> anchor);

    EditorModel& m_model;
    MapTool m_tool = MapTool::select;
    std::vector<Coordinate> m_pendingPoints;
    std::optional<std::int64_t> m_insertAnchor;
};

} // namespace trackloom
