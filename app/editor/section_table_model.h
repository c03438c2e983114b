#pragma once

// The sections of the displayed track (its trkseg and rte) as table rows:
// name, points, distance and the time from their first to their last timed
// point.

#include "core/track/gpx_track.h"

#include <QAbstractTableModel>
#include <vector>

namespace trackloom {

class SectionTableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { nameColumn, pointsColumn, distanceColumn, durationColumn };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows the sections of `track` (none for null).
    void setTrack(TrackPtr track);
    const TrackPtr& track() const { return m_track; }
    /// The section shown in `row`, or null.
    const GPXSegment* section(int row) const;
    /// The row of the section holding the point; -1 for none.
    int rowForPoint(std::int64_t pointID) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

  private:
    struct Figures {
        double distance = 0;
        std::optional<double> seconds;
    };

    TrackPtr m_track;
    std::vector<Figures> m_figures;
};

} // namespace trackloom
