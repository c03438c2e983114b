#include "app/places/place_explorer_view.h"

#include "app/map/heat_overlay.h"
#include "app/map/map_widget.h"
#include "app/map/shape_overlays.h"
#include "app/places/dots_overlay.h"
#include "app/places/place_day_list.h"
#include "app/places/place_explorer_model.h"
#include "app/places/place_search_panel.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QSplitter>

namespace trackloom {

namespace {

/// How close the map comes when it moves to a chosen place.
constexpr double focusZoom = 14;

} // namespace

PlaceExplorerView::PlaceExplorerView(TileSource* tiles, QWidget* parent)
    : QWidget(parent), m_panel(new PlaceSearchPanel), m_map(new MapWidget(tiles)),
      m_days(new PlaceDayList), m_heat(std::make_shared<HeatOverlay>()),
      m_dots(std::make_shared<DotsOverlay>()), m_circle(std::make_shared<RadiusCircleOverlay>()) {
    m_map->setObjectName(QStringLiteral("placeMap"));
    m_map->addOverlay(m_dots);
    m_map->addOverlay(m_heat);
    m_map->addOverlay(m_circle);

    auto* scroll = new QScrollArea;
    scroll->setWidget(m_panel);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setMinimumWidth(280);
    scroll->setMaximumWidth(380);

    auto* right = new QSplitter(Qt::Vertical);
    right->addWidget(m_map);
    right->addWidget(m_days);
    right->setStretchFactor(0, 1);
    right->setStretchFactor(1, 1);
    m_days->setMinimumHeight(240);
    right->setChildrenCollapsible(false);

    auto* columns = new QSplitter;
    columns->addWidget(scroll);
    columns->addWidget(right);
    columns->setStretchFactor(1, 1);
    columns->setChildrenCollapsible(false);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(columns);

    connect(m_map, &MapWidget::viewportChanged, this, &PlaceExplorerView::reportView);
    connect(m_days, &PlaceDayList::dayChosen, this, &PlaceExplorerView::dayChosen);
}

PlaceExplorerView::~PlaceExplorerView() = default;

void PlaceExplorerView::setModel(PlaceExplorerModel* model) {
    if (m_model) {
        m_model->disconnect(this);
    }
    m_model = model;
    m_panel->setModel(model);
    m_days->setModel(model);
    m_heat->clear();
    m_dots->setCells({});
    if (model) {
        connect(model, &PlaceExplorerModel::heatChanged, this, [this] {
            m_heat->setCells(m_model->heat().cells, m_model->heat().cellSize);
            m_map->refreshOverlays();
        });
        connect(model, &PlaceExplorerModel::dotsChanged, this, [this] {
            m_dots->setCells(m_model->dots().cells);
            m_map->refreshOverlays();
        });
        connect(model, &PlaceExplorerModel::placeChanged, this, &PlaceExplorerView::showPlace);
        connect(model, &PlaceExplorerModel::optionsChanged, this, &PlaceExplorerView::showPlace);
        connect(model, &PlaceExplorerModel::fitRequested, this, &PlaceExplorerView::fit);
        connect(model, &PlaceExplorerModel::focusRequested, this, &PlaceExplorerView::focus);
        reportView();
    }
    showPlace();
    m_map->refreshOverlays();
}

void PlaceExplorerView::reportView() {
    if (!m_model) {
        return;
    }
    const MapViewport& viewport = m_map->viewport();
    const MapRect visible = viewport.visibleRegion();
    m_model->setView({visible.minX, visible.minY, visible.width(), visible.height()},
                     viewport.size().width());
}

void PlaceExplorerView::showPlace() {
    if (m_model && m_model->center()) {
        const PlaceCoordinate centre = *m_model->center();
        m_circle->setCircle(Coordinate{centre.latitude, centre.longitude}, m_model->radius());
    } else {
        m_circle->setCircle(std::nullopt, 0);
    }
    showPicking();
    m_map->refreshOverlays();
}

void PlaceExplorerView::showPicking() {
    if (!m_model || !m_model->choosingLocation()) {
        m_map->setInteraction(nullptr);
        return;
    }
    m_map->setInteraction(std::make_unique<PickPlaceInteraction>([this](Coordinate where) {
        if (m_model) {
            m_model->choose(tr("Kartenpunkt"), {where.latitude, where.longitude}, false);
        }
    }));
}

void PlaceExplorerView::fit() {
    if (!m_model || !m_model->bounds()) {
        return;
    }
    const auto& [low, high] = *m_model->bounds();
    m_map->fitCoordinates({{low.latitude, low.longitude}, {high.latitude, high.longitude}});
}

void PlaceExplorerView::focus() {
    if (!m_model || !m_model->center()) {
        return;
    }
    const PlaceCoordinate centre = *m_model->center();
    const MapViewport& current = m_map->viewport();
    m_map->setViewport(MapViewport(project({centre.latitude, centre.longitude}),
                                   std::max(current.zoom(), focusZoom), current.size()));
}

} // namespace trackloom
