#pragma once

// The shown points of the timeline as table rows. Texts are made when a row is
// painted, and sorting uses plain numbers (`sortRole`), so that a day of tens of
// thousands of points sorts without formatting every time stamp.

#include "core/timeline/timeline_point.h"

#include <QAbstractTableModel>
#include <unordered_map>
#include <vector>

namespace trackloom {

class TimelineModel;

class TimelinePointTable : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { timeColumn, kindColumn, latitudeColumn, longitudeColumn, labelColumn, endColumn };
    enum Role {
        /// The point's id (`qint64`).
        idRole = Qt::UserRole,
        /// A value that sorts the column: seconds, degrees or the text.
        sortRole,
    };

    /// Follows `model`'s shown points.
    explicit TimelinePointTable(const TimelineModel& model, QObject* parent = nullptr);

    /// The id of the point in `row`, if the row exists.
    std::optional<std::int64_t> idAt(int row) const;
    /// The row of point `id`, or -1 when it is not shown.
    int rowOf(std::int64_t id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

  private:
    void reload();
    QVariant text(const TimelinePoint& point, int column) const;
    QVariant sortKey(const TimelinePoint& point, int column) const;

    const TimelineModel& m_model;
    // A copy: the model replaces its list before the view is told to reset.
    std::vector<TimelinePoint> m_points;
    std::unordered_map<std::int64_t, int> m_rows;
};

} // namespace trackloom
