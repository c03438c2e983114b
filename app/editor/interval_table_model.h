#pragma once

// The legs of the displayed track as table rows, for a view that scrolls through
// hundreds of thousands of them: the rows are computed when asked for, and the
// filter to the suspicious legs keeps only a list of leg ids.

#include "core/track/gpx_track.h"

#include <QAbstractTableModel>
#include <vector>

namespace trackloom {

class IntervalTableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { fromColumn, toColumn, distanceColumn, totalColumn, secondsColumn, speedColumn };
    enum Role {
        /// The leg's id (`qint64`).
        legRole = Qt::UserRole,
        /// Whether the leg is above the threshold or has a problem (`bool`).
        suspiciousRole,
    };

    explicit IntervalTableModel(QObject* parent = nullptr);

    /// Shows the legs of `track` (none for null).
    void setTrack(TrackPtr track);
    const TrackPtr& track() const { return m_track; }
    /// Marks the legs faster than `threshold` km/h or with a problem, and shows
    /// only those when `suspiciousOnly` is set.
    void setFilter(bool suspiciousOnly, double threshold);
    bool suspiciousOnly() const { return m_suspiciousOnly; }

    /// The leg shown in `row`, or null.
    const TrackLeg* leg(int row) const;
    /// The row of the leg that starts at the point (or ends there, for the last
    /// point of a section); -1 when that leg is not shown.
    int rowForPoint(std::int64_t pointID) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

  private:
    void classify();
    QString text(const TrackLeg& leg, int column) const;
    static QString headerToolTip(int section);

    TrackPtr m_track;
    bool m_suspiciousOnly = false;
    double m_threshold = 80;
    std::vector<bool> m_suspicious;
    // Ids of the suspicious legs, ascending: the rows while filtering.
    std::vector<std::int64_t> m_suspiciousIDs;
};

} // namespace trackloom
