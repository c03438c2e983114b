#include "app/editor/waypoint_table_model.h"

#include "app/editor/point_texts.h"

namespace trackloom {

WaypointTableModel::WaypointTableModel(const date::time_zone& zone, QObject* parent)
    : QAbstractTableModel(parent), m_zone(&zone) {}

void WaypointTableModel::setWaypoints(std::vector<Waypoint> waypoints,
                                      const date::time_zone& zone) {
    beginResetModel();
    m_waypoints = std::move(waypoints);
    m_zone = &zone;
    endResetModel();
}

const Waypoint* WaypointTableModel::waypoint(int row) const {
    return row >= 0 && row < rowCount() ? &m_waypoints[static_cast<std::size_t>(row)] : nullptr;
}

int WaypointTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_waypoints.size());
}

int WaypointTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 4;
}

QVariant WaypointTableModel::data(const QModelIndex& index, int role) const {
    const Waypoint* shown = waypoint(index.row());
    if (!shown || role != Qt::DisplayRole) {
        return {};
    }
    switch (index.column()) {
    case nameColumn:
        return shown->name.empty() ? QStringLiteral("–") : QString::fromStdString(shown->name);
    case timeColumn:
        return zonedTimeText(shown->time, *m_zone);
    case elevationColumn:
        return elevationText(shown->elevation);
    case coordinateColumn:
        return coordinateText(shown->coordinate);
    default:
        return {};
    }
}

QVariant WaypointTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case nameColumn:
        return tr("Name");
    case timeColumn:
        return tr("Zeit");
    case elevationColumn:
        return tr("Höhe");
    case coordinateColumn:
        return tr("Koordinaten");
    default:
        return {};
    }
}

} // namespace trackloom
