#pragma once

// The timeline's screen: the scope bar on top; the day list, the map over the
// point table, and the inspector side by side below.

#include <QWidget>

namespace trackloom {

class TileSource;
class TimelineDayView;
class TimelineInspector;
class TimelineMap;
class TimelineModel;
class TimelinePointView;
class TimelineScopeBar;

class TimelineView : public QWidget {
    Q_OBJECT

  public:
    TimelineView(TimelineModel& model, TileSource* tiles, QWidget* parent = nullptr);

    TimelineScopeBar* scopeBar() const { return m_scope; }
    TimelineDayView* days() const { return m_days; }
    TimelineMap* map() const { return m_map; }
    TimelinePointView* points() const { return m_points; }
    TimelineInspector* inspector() const { return m_inspector; }

  private:
    TimelineScopeBar* m_scope;
    TimelineDayView* m_days;
    TimelineMap* m_map;
    TimelinePointView* m_points;
    TimelineInspector* m_inspector;
};

} // namespace trackloom
