#include "app/editor/waypoint_list_view.h"

#include "app/editor/editor_model.h"
#include "app/editor/waypoint_table_model.h"
#include "app/map/map_widget.h"
#include "app/shell/row_tables.h"

#include <QHeaderView>
#include <QLabel>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace trackloom {

WaypointListView::WaypointListView(EditorModel& model, MapWidget* map, QWidget* parent)
    : QWidget(parent), m_model(model), m_map(map),
      m_rows(new WaypointTableModel(model.timeFields().zone(), this)), m_table(new QTableView),
      m_empty(new QLabel(tr("Diese Datei enthält keine Wegpunkte."))), m_pages(new QStackedWidget) {
    m_table->setModel(m_rows);
    prepareRowTable(*m_table, QAbstractItemView::SingleSelection);
    // Every column keeps the width of its texts; a narrow table scrolls rather
    // than cutting names.
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_pages->addWidget(m_table);
    m_pages->addWidget(m_empty);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pages);

    connect(&model, &EditorModel::trackChanged, this, [this] {
        // The model also reports changes that keep the track.
        if (m_shownTrack != m_model.track().get()) {
            showWaypoints();
        }
    });
    // Their times follow the zone the time fields show.
    connect(&model.timeFields(), &EditorTimeFields::changed, this,
            &WaypointListView::showWaypoints);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &WaypointListView::rowChosen);
    showWaypoints();
}

bool WaypointListView::showsEmptyNote() const {
    return m_pages->currentWidget() == m_empty;
}

void WaypointListView::showWaypoints() {
    const auto& track = m_model.track();
    m_shownTrack = track.get();
    m_rows->setWaypoints(track ? waypointsOf(*track) : std::vector<Waypoint>{},
                         m_model.timeFields().zone());
    m_pages->setCurrentWidget(m_rows->rowCount() > 0 ? static_cast<QWidget*>(m_table) : m_empty);
}

void WaypointListView::rowChosen() {
    const auto rows = m_table->selectionModel()->selectedRows();
    const auto* waypoint = rows.isEmpty() ? nullptr : m_rows->waypoint(rows.front().row());
    if (waypoint && m_map) {
        const MapViewport& shown = m_map->viewport();
        m_map->setViewport(MapViewport(project(waypoint->coordinate), shown.zoom(), shown.size()));
    }
}

} // namespace trackloom
