#pragma once

// The waypoints of the displayed track as table rows: name, time in the
// editor's zone, position.

#include "core/track/waypoints.h"

#include <QAbstractTableModel>
#include <date/tz.h>
#include <vector>

namespace trackloom {

class WaypointTableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { nameColumn, timeColumn, elevationColumn, coordinateColumn };

    /// Times are shown in `zone` until `setWaypoints` names another.
    explicit WaypointTableModel(const date::time_zone& zone, QObject* parent = nullptr);

    void setWaypoints(std::vector<Waypoint> waypoints, const date::time_zone& zone);
    /// The waypoint shown in `row`, or null.
    const Waypoint* waypoint(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

  private:
    std::vector<Waypoint> m_waypoints;
    const date::time_zone* m_zone;
};

} // namespace trackloom
