#pragma once

// The place explorer's screen: the search panel on the left, the map with the
// selected points, the heat map and the chosen place on the right, the days
// found below it. The screen follows whichever model the workspace gives it.

#include "core/places/place_analysis.h"

#include <QPointer>
#include <QWidget>
#include <memory>

namespace trackloom {

class DotsOverlay;
class HeatOverlay;
class MapWidget;
class PlaceDayList;
class PlaceExplorerModel;
class PlaceSearchPanel;
class RadiusCircleOverlay;
class TileSource;

class PlaceExplorerView : public QWidget {
    Q_OBJECT

  public:
    /// `tiles` may be null (no tiles).
    explicit PlaceExplorerView(TileSource* tiles, QWidget* parent = nullptr);
    ~PlaceExplorerView() override;

    void setModel(PlaceExplorerModel* model);

    MapWidget* map() const { return m_map; }
    PlaceSearchPanel* searchPanel() const { return m_panel; }
    PlaceDayList* dayList() const { return m_days; }
    const HeatOverlay& heatOverlay() const { return *m_heat; }

  signals:
    void dayChosen(trackloom::PlaceDay day);

  private:
    void reportView();
    void showPlace();
    void showPicking();
    void fit();
    void focus();

    QPointer<PlaceExplorerModel> m_model;
    PlaceSearchPanel* m_panel;
    MapWidget* m_map;
    PlaceDayList* m_days;
    std::shared_ptr<HeatOverlay> m_heat;
    std::shared_ptr<DotsOverlay> m_dots;
    std::shared_ptr<RadiusCircleOverlay> m_circle;
};

} // namespace trackloom
